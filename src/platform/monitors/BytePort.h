#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pulselark {

/// A serial port, 8 data bits, no parity, one stop bit. No call waits.
class BytePort {
public:
    virtual ~BytePort() = default;
    /// An empty name takes the first port there is. False if it cannot be opened.
    virtual bool Open(const std::string& name, int speed) = 0;
    /// Appends what has arrived. False if the port is gone.
    virtual bool Read(std::string& bytes) = 0;
    virtual void Write(std::string_view bytes) = 0;
    virtual void Close() = 0;
    /// The ports of this computer, those of USB first.
    virtual std::vector<std::string> Ports() = 0;
};

} // namespace pulselark
