#pragma once

#include <span>
#include <string>

namespace pulselark {

/// The way to partner programs, which are found by their title.
class PartnerTransport {
public:
    virtual ~PartnerTransport() = default;
    /// Looks the partner up, hands it one message and waits until it has handled it. False when there is no
    /// partner of this title, or it is not heard; that is no failure, and the message is forgotten.
    virtual bool Send(const std::string& title, std::span<const unsigned char> payload) = 0;
};

/// No partner can be reached.
class NoPartners final : public PartnerTransport {
public:
    bool Send(const std::string& /*title*/, std::span<const unsigned char> /*payload*/) override {
        return false;
    }
};

} // namespace pulselark
