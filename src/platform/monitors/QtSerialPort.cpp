#include "platform/monitors/QtSerialPort.h"

#include <QSerialPortInfo>

#include <algorithm>

namespace pulselark {

bool QtSerialPort::Open(const std::string& name, int speed) {
    Close();
    const std::vector<std::string> ports = name.empty() ? Ports() : std::vector{name};
    if (ports.empty())
        return false;
    port_.setPortName(QString::fromStdString(ports.front()));
    port_.setBaudRate(speed);
    if (!port_.open(QIODevice::ReadWrite))
        return false;
    port_.setDataTerminalReady(true);
    port_.clear();
    port_.clearError();
    return true;
}

bool QtSerialPort::Read(std::string& bytes) {
    port_.waitForReadyRead(0); // looks, and does not wait
    const QByteArray come = port_.readAll();
    bytes.append(come.constData(), static_cast<std::size_t>(come.size()));
    const QSerialPort::SerialPortError error = port_.error();
    if (error == QSerialPort::TimeoutError) // nothing was there
        port_.clearError();
    return error == QSerialPort::NoError || error == QSerialPort::TimeoutError;
}

void QtSerialPort::Write(std::string_view bytes) {
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    port_.flush();
}

void QtSerialPort::Close() {
    if (port_.isOpen())
        port_.close();
}

std::vector<std::string> QtSerialPort::Ports() {
    QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    std::stable_partition(ports.begin(), ports.end(),
                          [](const QSerialPortInfo& port) { return port.hasProductIdentifier(); });
    std::vector<std::string> names;
    for (const QSerialPortInfo& port : ports)
        names.push_back(port.systemLocation().toStdString());
    return names;
}

} // namespace pulselark
