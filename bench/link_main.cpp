// pulselark_link_bench: round trips of the link beside those of a bare socket, 10,000 of each size, in turns.
// Prints the median of each in wall time, since what counts is how long a second of the session is held up.
#include "platform/link/LinkFormat.h"
#include "platform/link/PartnerListener.h"
#include "platform/link/SocketTransport.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <vector>

using namespace pulselark;

namespace {

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

[[noreturn]] void Listen(const std::string& title, int report) {
    double last = 0;
    PartnerListener listener(title, [&last](LinkBytes payload) {
        LinkMessage message;
        if (UnpackLinkMessage(payload, message))
            last += message.Value;
    });
    const bool listens = listener.Open() == 0;
    if (::write(report, &listens, 1) != 1 || !listens)
        ::_exit(1);
    for (;;) {
        pollfd ready{listener.Descriptor(), POLLIN, 0};
        ::poll(&ready, 1, -1);
        listener.HandleArrived();
    }
}

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

// False when a message was not heard.
bool Measure(const char* name, int bare, LinkBytes payload, bool& kept) {
    SocketTransport link;
    const std::vector<unsigned char> packet(LinkHeaderSize + payload.size());
    std::vector<double> own;
    std::vector<double> floor;
    bool heard = true;
    for (int i = 0; i < Messages; ++i) {
        own.push_back(Microseconds([&] { heard = link.Send("PulseLarkBench", payload) && heard; }));
        floor.push_back(Microseconds([&] {
            unsigned char answer = 0;
            heard = ::send(bare, packet.data(), packet.size(), 0) > 0 && ::recv(bare, &answer, 1, 0) == 1 &&
                    heard;
        }));
    }
    const double ratio = Median(own) / Median(floor);
    kept = kept && ratio <= Goal;
    std::printf("%-44s %12.1f %12.1f %7.2f %6.2f  %s\n", name, Median(own), Median(floor), ratio, Goal,
                ratio <= Goal ? "kept" : "MISSED");
    return heard;
}

} // namespace

int main() {
    // A folder of its own: the user's partners are not disturbed.
    std::string folder = (std::filesystem::temp_directory_path() / "lark-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr)
        return 1;
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    std::array<int, 2> pair{};
    std::array<int, 2> report{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0 ||
        ::pipe(report.data()) != 0)
        return 1;
    const pid_t bare = ::fork();
    if (bare == 0) {
        ::close(pair[0]);
        Answer(pair[1]);
    }
    ::close(pair[1]);
    const pid_t partner = ::fork();
    if (partner == 0)
        Listen("PulseLarkBench", report[1]);
    bool listens = false;
    bool heard = ::read(report[0], &listens, 1) == 1 && listens;
    bool kept = true;
    if (heard) {
        std::printf("%-44s %12s %12s %7s %6s\n", "median round trip, microseconds", "link", "bare socket",
                    "ratio", "goal");
        heard = Measure("command, 48 bytes", pair[0], PackLinkCommand(CmdTick, 1, 0, 0, 0), kept) && heard;
        heard = Measure("spectrum, 2056 bytes", pair[0],
                        PackLinkSpectrum(std::array<float, LinkSpectrumItems>{}), kept) &&
                heard;
    }
    for (const pid_t child : {bare, partner}) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    if (!heard)
        std::fputs("pulselark_link_bench: a message was not heard\n", stderr);
    return heard && kept ? 0 : 1;
}
