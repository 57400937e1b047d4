// pulselark_link_bench: round trips of the link beside those of a bare socket, 10,000 of each size, in turns.
// Prints the median of each in wall time, since what counts is how long a second of the session is held up.
// Ends with 1 when a ratio misses its goal.
#include "platform/link/LinkFormat.h"
#include "platform/link/PartnerListener.h"
#include "platform/link/SocketTransport.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sched.h>
#include <string>
#include <sys/wait.h>
#include <vector>

using namespace pulselark;

namespace {

constexpr const char* Title = "PulseLarkBench";
constexpr int Messages = 10000;
constexpr double Goal = 3;

// A partner without a format: it answers every packet with a byte.
[[noreturn]] void Answer(int connection) {
    std::array<unsigned char, LinkLargestPacket> packet;
    while (::recv(connection, packet.data(), packet.size(), 0) > 0) {
        if (::send(connection, &LinkAnswer, 1, MSG_NOSIGNAL) != 1)
            break;
    }
    ::_exit(0);
}

// Both kinds of partner tell by a byte that they listen.
[[noreturn]] void ListenBare(int report) {
    LinkPlace place;
    const int listener = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    if (OpenLinkPlace(Title, true, place) == 0 && ::bind(listener, place.Get(), sizeof place.Address) == 0 &&
        ::listen(listener, 1) == 0 && ::write(report, "", 1) == 1)
        Answer(::accept(listener, nullptr, nullptr));
    ::_exit(1);
}

[[noreturn]] void Listen(int report) {
    double sum = 0;
    PartnerListener listener(Title, [&sum](LinkBytes payload) {
        LinkMessage message;
        if (UnpackLinkMessage(payload, message))
            sum += message.Value;
    });
    if (listener.Open() != 0 || ::write(report, "", 1) != 1)
        ::_exit(1);
    for (;;) {
        pollfd ready{listener.Descriptor(), POLLIN, 0};
        ::poll(&ready, 1, -1);
        listener.HandleArrived();
    }
}

// A child process for as long as this lives.
template <class Body>
class Child {
public:
    explicit Child(Body body) : process_(::fork()) {
        if (process_ == 0)
            body();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }

private:
    pid_t process_;
};

template <class Trip>
double Microseconds(Trip trip) {
    const auto begin = std::chrono::steady_clock::now();
    trip();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Row {
    const char* Name;
    void (*Partner)(int report);
    LinkBytes Payload;
};

enum class Verdict { Kept, Missed, Unheard };

Verdict Measure(const Row& row, int bare) {
    std::array<int, 2> report{};
    if (::pipe2(report.data(), O_CLOEXEC) != 0)
        return Verdict::Unheard;
    const Child partner([&] { row.Partner(report[1]); });
    ::close(report[1]);
    char listens = 0;
    bool heard = ::read(report[0], &listens, 1) == 1;
    ::close(report[0]);

    SocketTransport link;
    const std::vector<unsigned char> packet(LinkHeaderSize + row.Payload.size());
    std::vector<double> own;
    std::vector<double> floor;
    for (int i = 0; i < Messages && heard; ++i) {
        own.push_back(Microseconds([&] { heard = link.Send(Title, row.Payload); }));
        floor.push_back(Microseconds([&] {
            unsigned char answer = 0;
            heard = ::send(bare, packet.data(), packet.size(), 0) > 0 && ::recv(bare, &answer, 1, 0) == 1 &&
                    heard;
        }));
    }
    if (!heard)
        return Verdict::Unheard;
    const double ratio = Median(own) / Median(floor);
    std::printf("%-44s %12.1f %12.1f %7.2f %6.2f  %s\n", row.Name, Median(own), Median(floor), ratio, Goal,
                ratio <= Goal ? "kept" : "MISSED");
    return ratio <= Goal ? Verdict::Kept : Verdict::Missed;
}

// A round trip between two processors takes several times as long as one on the same, and the system decides
// anew in each run which it is to be, for either socket. So all run on the processor that this one runs on.
void StayOnOneProcessor() {
    cpu_set_t own;
    CPU_ZERO(&own);
    CPU_SET(static_cast<std::size_t>(::sched_getcpu()), &own);
    ::sched_setaffinity(0, sizeof own, &own);
}

bool MeasureAll() {
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0)
        return false;
    const Child bare([&] {
        ::close(pair[0]);
        Answer(pair[1]);
    });
    ::close(pair[1]);
    const auto command = PackLinkCommand(CmdTick, 1, 0, 0, 0);
    const auto spectrum = PackLinkSpectrum(std::array<float, LinkSpectrumItems>{});
    std::printf("%-44s %12s %12s %7s %6s\n", "median round trip, microseconds", "link", "bare socket",
                "ratio", "goal");
    bool kept = true;
    for (const Row& row : {Row{"command, 48 bytes, bare partner", &ListenBare, command},
                           Row{"spectrum, 2056 bytes, bare partner", &ListenBare, spectrum},
                           Row{"command, 48 bytes, our listener", &Listen, command},
                           Row{"spectrum, 2056 bytes, our listener", &Listen, spectrum}}) {
        ::unlink(LinkSocketName(Title).c_str());
        const Verdict verdict = Measure(row, pair[0]);
        if (verdict == Verdict::Unheard)
            std::fprintf(stderr, "pulselark_link_bench: %s: a message was not heard\n", row.Name);
        kept = kept && verdict == Verdict::Kept;
    }
    return kept;
}

} // namespace

int main() {
    // A folder of its own: the user's partners are not disturbed.
    std::string folder = (std::filesystem::temp_directory_path() / "lark-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr)
        return 1;
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    StayOnOneProcessor();
    const bool kept = MeasureAll();
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    return kept ? 0 : 1;
}
