#pragma once

#include "platform/monitors/StrapLink.h"

#include <QBluetoothDeviceDiscoveryAgent>
#include <QBluetoothDeviceInfo>
#include <QLowEnergyController>
#include <QLowEnergyService>
#include <QObject>
#include <QTimer>

#include <memory>

namespace pulselark {

/// The system's Bluetooth LE radio. Notifications come by the event loop.
class QtStrapLink final : public QObject, public StrapLink {
    Q_OBJECT

public:
    QtStrapLink();
    ~QtStrapLink() override;

    void Seek(const std::string& address) override;
    void Leave() override;
    State Now() override;
    std::vector<Bytes> TakeEcg() override;
    std::vector<Bytes> TakeHeartRates() override;
    std::vector<std::string> Straps() override;

private:
    void BeginSearch();
    void Hear(const QBluetoothDeviceInfo& device);
    void Connect(const QBluetoothDeviceInfo& device);
    void Lose();
    void OpenServices();
    void StartEcg();
    void TakeValue(const QLowEnergyCharacteristic& characteristic, const QByteArray& value);

    QString address_;
    bool wanted_ = false; // a strap is to be connected
    State state_ = State::NoRadio;
    std::unique_ptr<QBluetoothDeviceDiscoveryAgent> search_;
    std::unique_ptr<QLowEnergyController> strap_;
    std::unique_ptr<QLowEnergyService> measurement_;
    std::unique_ptr<QLowEnergyService> heartRate_;
    std::vector<QBluetoothDeviceInfo> heard_;
    std::vector<Bytes> ecg_, heartRates_;
    QTimer again_;
};

} // namespace pulselark
