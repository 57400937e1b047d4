#pragma once

#include "platform/PartnerTransport.h"
#include "platform/link/LinkPlace.h"

#include <cstddef>
#include <string>
#include <sys/stat.h>

namespace pulselark {

/// The partner is a process of this user that listens on the socket of its title (LinkPlace.h).
///
/// Each message looks at the socket's file anew; the connection is kept as long as it is still that file's. A
/// partner that does not answer within `LinkPatience` is left alone: each later message only looks, without
/// waiting, whether the missing answer has come, and is forgotten until it has.
class SocketTransport final : public PartnerTransport {
public:
    bool Send(const std::string& title, std::span<const unsigned char> payload) override;

private:
    enum class Answer { Came, Missing, Gone };
    /// The file under which a partner listens, told from any that may come after it.
    struct FileMark {
        dev_t Device = 0;
        ino_t Number = 0;
        timespec Changed{};

        bool operator==(const FileMark& other) const;
    };

    static bool ReadMark(const LinkPlace& place, FileMark& mark);
    bool StillTheSame(const std::string& title) const;
    bool Connect(const std::string& title);
    Answer Exchange(std::span<const unsigned char> payload);
    Answer AwaitAnswer(int milliseconds) const;

    std::string title_;
    LinkPlace place_;
    FileMark mark_;
    FileDescriptor connection_;
    bool owesAnswer_ = false;
};

/// Milliseconds that one message may be held up, by a partner that hangs. Somewhat less than the 50 that a
/// second of the session can spare, since a process is not woken on the dot.
inline constexpr int LinkPatience = 40;

} // namespace pulselark
