#pragma once

#include "platform/link/FileDescriptor.h"
#include "platform/link/LinkFormat.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace pulselark {

/// The partner's end of the link: it listens under a title, hands each payload on and answers it.
class PartnerListener {
public:
    /// Takes the bytes of one message; they are gone when it returns. `UnpackLinkMessage` reads them.
    using Handler = std::function<void(LinkBytes payload)>;

    /// `handler` may do anything but end this listener.
    PartnerListener(std::string title, Handler handler);
    PartnerListener(const PartnerListener&) = delete;
    PartnerListener& operator=(const PartnerListener&) = delete;
    /// Takes the socket out of the folder, unless somebody else has put his own there.
    ~PartnerListener();

    /// Begins to listen. A socket that a dead process has left is replaced; returns EADDRINUSE when somebody
    /// listens under this title, 0 after a success, else the `errno` of the call that failed.
    int Open();

    /// One descriptor for `poll` or a socket notifier: ready to be read whenever `HandleArrived` has work.
    int Descriptor() const { return events_.Number(); }

    /// Takes in what has arrived, without waiting: new connections (those of another user are refused), ends
    /// of connections, and of each connection one message, since its sender waits for the answer. What there
    /// is beyond that leaves the descriptor ready. A packet that breaks the format is answered and dropped.
    void HandleArrived();

private:
    int Bind();
    void Watch(int descriptor);
    void AcceptConnections();
    void HandlePacket(int connection);
    void Forget(int connection);

    std::string title_;
    Handler handler_;
    FileDescriptor events_, listener_;
    std::vector<FileDescriptor> connections_;
    dev_t fileDevice_ = 0;
    ino_t fileNumber_ = 0;
};

} // namespace pulselark
