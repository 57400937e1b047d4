#include "support/PartnerProcess.h"

#include <array>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pulselark {

namespace {

constexpr double Ready = -12345;

void Report(int report, double value) {
    if (::write(report, &value, sizeof value) != sizeof value)
        ::_exit(1);
}

void Serve(int connection, int report) {
    std::array<unsigned char, 4096> packet;
    for (;;) {
        const ssize_t size = ::recv(connection, packet.data(), packet.size(), 0);
        if (size < 16)
            return;
        double last = 0;
        std::memcpy(&last, packet.data() + size - 8, sizeof last);
        Report(report, last);
        const unsigned char done = 1;
        if (::send(connection, &done, 1, MSG_NOSIGNAL) != 1)
            return;
    }
}

[[noreturn]] void Listen(const std::string& socketName, int user, int report) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socketName.c_str(), sizeof address.sun_path - 1);
    ::unlink(socketName.c_str());
    const int listener = ::socket(AF_UNIX, SOCK_SEQPACKET, 0);
    if (::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        ::_exit(1);
    if (user >= 0 && ::setuid(static_cast<uid_t>(user)) != 0)
        ::_exit(1);
    if (::listen(listener, 4) != 0)
        ::_exit(1);
    Report(report, Ready);
    for (;;) {
        const int connection = ::accept(listener, nullptr, nullptr);
        Serve(connection, report);
        ::close(connection);
    }
}

} // namespace

PartnerProcess::PartnerProcess(const std::string& socketName, int user) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return;
    process_ = ::fork();
    if (process_ == 0)
        Listen(socketName, user, pipe[1]);
    ::close(pipe[1]);
    report_ = pipe[0];
    double ready = 0;
    if (::read(report_, &ready, sizeof ready) != sizeof ready)
        Kill();
    ::fcntl(report_, F_SETFL, O_NONBLOCK);
}

void PartnerProcess::Stop() {
    ::kill(process_, SIGSTOP);
    ::waitpid(process_, nullptr, WUNTRACED);
}

void PartnerProcess::Continue() {
    ::kill(process_, SIGCONT);
}

void PartnerProcess::Kill() {
    if (process_ <= 0)
        return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
    Received();
    ::close(report_);
    report_ = -1;
}

const std::vector<double>& PartnerProcess::Received() {
    double value = 0;
    while (report_ >= 0 && ::read(report_, &value, sizeof value) == sizeof value)
        received_.push_back(value);
    return received_;
}

} // namespace pulselark
