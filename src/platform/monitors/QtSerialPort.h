#pragma once

#include "platform/monitors/BytePort.h"

#include <QSerialPort>

namespace pulselark {

/// A serial port of the system. Works with and without a running event loop.
class QtSerialPort final : public BytePort {
public:
    bool Open(const std::string& name, int speed) override;
    bool Read(std::string& bytes) override;
    void Write(std::string_view bytes) override;
    void Close() override;
    std::vector<std::string> Ports() override;

private:
    QSerialPort port_;
};

} // namespace pulselark
