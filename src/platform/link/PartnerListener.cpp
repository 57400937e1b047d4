#include "platform/link/PartnerListener.h"

#include "platform/link/LinkPlace.h"

#include <array>
#include <cerrno>
#include <sys/epoll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace pulselark {

namespace {

constexpr int WaitingConnections = 8;
constexpr int SocketKind = SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK;

// Only a refusal says for certain that nobody listens. The address is that of a file that is there.
bool SomebodyListens(const LinkPlace& place) {
    const FileDescriptor probe(::socket(AF_UNIX, SocketKind, 0));
    return !probe.IsOpen() || ::connect(probe.Number(), place.Get(), sizeof place.Address) == 0 ||
           (errno != ECONNREFUSED && errno != ENOENT);
}

int BindAndListen(int listener, const LinkPlace& place) {
    if (::bind(listener, place.Get(), sizeof place.Address) != 0)
        return errno;
    return ::listen(listener, WaitingConnections) == 0 ? 0 : errno;
}

} // namespace

PartnerListener::PartnerListener(std::string title, Handler handler)
    : title_(std::move(title)), handler_(std::move(handler)) {}

PartnerListener::~PartnerListener() {
    LinkPlace place;
    struct stat facts {};
    if (fileNumber_ != 0 && OpenLinkPlace(title_, false, place) == 0 &&
        ::stat(place.Address.sun_path, &facts) == 0 && facts.st_dev == fileDevice_ &&
        facts.st_ino == fileNumber_)
        ::unlink(place.Address.sun_path);
}

int PartnerListener::Bind() {
    LinkPlace place;
    if (const int failure = OpenLinkPlace(title_, true, place); failure != 0)
        return failure;
    // Two partners that start at once would each take the other's fresh socket for a dead one.
    while (::flock(place.Folder.Number(), LOCK_EX) != 0) {
        if (errno != EINTR)
            return errno;
    }
    int failure = BindAndListen(listener_.Number(), place);
    if (failure == EADDRINUSE && !SomebodyListens(place)) {
        ::unlink(place.Address.sun_path);
        failure = BindAndListen(listener_.Number(), place);
    }
    if (failure != 0)
        return failure;
    struct stat facts {};
    if (::stat(place.Address.sun_path, &facts) == 0) {
        fileDevice_ = facts.st_dev;
        fileNumber_ = facts.st_ino;
    }
    return 0;
}

int PartnerListener::Open() {
    events_ = FileDescriptor(::epoll_create1(EPOLL_CLOEXEC));
    listener_ = FileDescriptor(::socket(AF_UNIX, SocketKind, 0));
    if (!events_.IsOpen() || !listener_.IsOpen())
        return errno;
    if (const int failure = Bind(); failure != 0)
        return failure;
    Watch(listener_.Number());
    return 0;
}

void PartnerListener::Watch(int descriptor) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    ::epoll_ctl(events_.Number(), EPOLL_CTL_ADD, descriptor, &event);
}

void PartnerListener::HandleArrived() {
    constexpr int AtOnce = 16;
    std::array<epoll_event, AtOnce> arrived{};
    const int count = ::epoll_wait(events_.Number(), arrived.data(), AtOnce, 0);
    for (int i = 0; i < count; ++i) {
        const int descriptor = arrived.at(static_cast<std::size_t>(i)).data.fd;
        if (descriptor == listener_.Number()) {
            AcceptConnections();
            continue;
        }
        HandlePacket(descriptor);
    }
}

void PartnerListener::AcceptConnections() {
    for (;;) {
        FileDescriptor connection(
            ::accept4(listener_.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!connection.IsOpen() && (errno == EINTR || errno == ECONNABORTED))
            continue;
        if (!connection.IsOpen())
            return;
        if (!PeerIsOwnUser(connection.Number()))
            continue;
        Watch(connection.Number());
        connections_.push_back(std::move(connection));
    }
}

void PartnerListener::HandlePacket(int connection) {
    // One byte more than the longest packet, so that a longer one does not pass for it.
    std::array<unsigned char, LinkLargestPacket + 1> packet;
    const ssize_t size = ::recv(connection, packet.data(), packet.size(), 0);
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return; // it stays ready for the next time
    if (size <= 0) {
        Forget(connection);
        return;
    }
    const LinkBytes payload = PayloadOfPacket({packet.data(), static_cast<std::size_t>(size)});
    if (!payload.empty())
        handler_(payload);
    // A sender that is gone, or does not take its answers, is no concern of the partner.
    static_cast<void>(::send(connection, &LinkAnswer, 1, MSG_NOSIGNAL));
}

void PartnerListener::Forget(int connection) {
    std::erase_if(connections_,
                  [connection](const FileDescriptor& own) { return own.Number() == connection; });
}

} // namespace pulselark
