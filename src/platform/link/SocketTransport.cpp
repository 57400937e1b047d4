#include "platform/link/SocketTransport.h"

#include "platform/link/LinkFormat.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <sys/uio.h>

namespace pulselark {

namespace {

using Milliseconds = std::chrono::milliseconds;

ssize_t SendPacket(int connection, LinkBytes payload) {
    LinkHeader header = PackLinkHeader(payload.size());
    std::array<iovec, 2> parts{
        {{header.data(), header.size()}, {const_cast<unsigned char*>(payload.data()), payload.size()}}};
    msghdr packet{};
    packet.msg_iov = parts.data();
    packet.msg_iovlen = parts.size();
    ssize_t sent = 0;
    do {
        sent = ::sendmsg(connection, &packet, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    return sent;
}

} // namespace

bool SocketTransport::FileMark::operator==(const FileMark& other) const {
    return Device == other.Device && Number == other.Number && Changed.tv_sec == other.Changed.tv_sec &&
           Changed.tv_nsec == other.Changed.tv_nsec;
}

bool SocketTransport::ReadMark(const LinkPlace& place, FileMark& mark) {
    struct stat facts {};
    if (::stat(place.Address.sun_path, &facts) != 0)
        return false;
    mark = {facts.st_dev, facts.st_ino, facts.st_ctim};
    return true;
}

bool SocketTransport::StillTheSame(const std::string& title) const {
    FileMark now;
    return connection_.IsOpen() && title == title_ && ReadMark(place_, now) && now == mark_;
}

bool SocketTransport::Connect(const std::string& title) {
    connection_.Close();
    owesAnswer_ = false;
    title_ = title;
    place_ = LinkPlace{};
    // The mark is read first: if the file changes hands in between, the next message sees it.
    if (OpenLinkPlace(title, false, place_) != 0 || !ReadMark(place_, mark_))
        return false;
    FileDescriptor connection(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Without waiting: a partner whose queue of callers is full does not listen.
    if (!connection.IsOpen() || ::connect(connection.Number(), place_.Get(), sizeof place_.Address) != 0 ||
        !PeerIsOwnUser(connection.Number()))
        return false;
    const timeval patience{0, suseconds_t{LinkPatience} * 1000};
    ::setsockopt(connection.Number(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    ::fcntl(connection.Number(), F_SETFL, 0); // from here on only an answer is waited for
    connection_ = std::move(connection);
    return true;
}

SocketTransport::Answer SocketTransport::AwaitAnswer(int milliseconds) const {
    const auto end = std::chrono::steady_clock::now() + Milliseconds(milliseconds);
    for (auto left = Milliseconds(milliseconds);;) {
        unsigned char answer = 0;
        // The socket itself stops waiting after LinkPatience; poll is for the rest of a wait that was
        // interrupted.
        const ssize_t size =
            ::recv(connection_.Number(), &answer, 1, left.count() < LinkPatience ? MSG_DONTWAIT : 0);
        if (size > 0)
            return Answer::Came;
        if (size == 0 || (errno != EAGAIN && errno != EINTR))
            return Answer::Gone;
        left = std::chrono::duration_cast<Milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return Answer::Missing;
        pollfd ready{connection_.Number(), POLLIN, 0};
        ::poll(&ready, 1, static_cast<int>(left.count())); // an interruption is told by the next look
    }
}

SocketTransport::Answer SocketTransport::Exchange(LinkBytes payload) {
    if (owesAnswer_) {
        if (const Answer late = AwaitAnswer(0); late != Answer::Came)
            return late;
        owesAnswer_ = false;
    }
    if (SendPacket(connection_.Number(), payload) < 0)
        return Answer::Gone;
    const Answer answer = AwaitAnswer(LinkPatience);
    owesAnswer_ = answer == Answer::Missing;
    return answer;
}

bool SocketTransport::Send(const std::string& title, LinkBytes payload) {
    const bool kept = StillTheSame(title);
    if (!kept && !Connect(title))
        return false;
    Answer answer = Exchange(payload);
    // The partner that was known has gone; another may stand in its place already.
    if (answer == Answer::Gone && kept && Connect(title))
        answer = Exchange(payload);
    if (answer == Answer::Gone)
        connection_.Close();
    return answer == Answer::Came;
}

} // namespace pulselark
