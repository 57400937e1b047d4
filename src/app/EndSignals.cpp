#include "app/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace pulselark {

namespace {

constexpr std::array Heard{SIGTERM, SIGINT, SIGHUP};

std::array<int, 2> pipeEnds{-1, -1}; // to read, to write
std::array<struct sigaction, Heard.size()> before{};

// Nothing but a write is safe here.
extern "C" void PassOn(int number) {
    const int kept = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
    errno = kept;
}

void Hear(int number, struct sigaction& old) {
    ::sigaction(number, nullptr, &old);
    if (old.sa_handler == SIG_IGN)
        return;
    struct sigaction heard {};
    heard.sa_handler = &PassOn;
    heard.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigaction(number, &heard, nullptr);
}

} // namespace

EndSignals::EndSignals(std::function<void(int)> ended) : ended_(std::move(ended)) {
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then end the program as they always do
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &EndSignals::Take);
    for (std::size_t i = 0; i < Heard.size(); ++i)
        Hear(Heard[i], before[i]);
}

EndSignals::~EndSignals() {
    if (notifier_ == nullptr)
        return;
    for (std::size_t i = 0; i < Heard.size(); ++i)
        ::sigaction(Heard[i], &before[i], nullptr);
    notifier_.reset();
    for (int& end : pipeEnds)
        ::close(std::exchange(end, -1));
}

void EndSignals::Take() {
    unsigned char number = 0;
    while (::read(pipeEnds[0], &number, 1) == 1)
        ended_(number);
}

} // namespace pulselark
