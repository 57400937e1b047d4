#include "platform/monitors/QtStrapLink.h"

#include <QBluetoothLocalDevice>
#include <QBluetoothUuid>
#include <QFileInfo>
#include <QLowEnergyCharacteristic>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int SearchTime = 15000; // ms
constexpr int BetweenSearches = 1000;
constexpr int StartTime = 15000;          // from the search's find to the first ECG
constexpr std::size_t MostWaiting = 1000; // notifications that nobody takes

// The measurement service of straps with raw ECG.
QBluetoothUuid Measurement() {
    return QBluetoothUuid(QString("{fb005c80-02e7-f387-1cad-8acd2d8df0c8}"));
}
QBluetoothUuid MeasurementControl() {
    return QBluetoothUuid(QString("{fb005c81-02e7-f387-1cad-8acd2d8df0c8}"));
}
QBluetoothUuid MeasurementData() {
    return QBluetoothUuid(QString("{fb005c82-02e7-f387-1cad-8acd2d8df0c8}"));
}
QBluetoothUuid HeartRate() {
    return QBluetoothUuid(QBluetoothUuid::ServiceClassUuid::HeartRate);
}
QBluetoothUuid HeartRateMeasurement() {
    return QBluetoothUuid(QBluetoothUuid::CharacteristicType::HeartRateMeasurement);
}

// Start (2) or stop (3) of the ECG (0); with the start its rate of 130 and resolution of 14 bits.
const QByteArray StartCommand = QByteArray::fromHex("02000001820001010e00");
const QByteArray StopCommand = QByteArray::fromHex("0300");
const QByteArray Notify = QByteArray::fromHex("0100");
const QByteArray Indicate = QByteArray::fromHex("0200");

// Without the system's message bus the toolkit would only complain.
bool RadioOn() {
    const bool bus = qEnvironmentVariableIsSet("DBUS_SYSTEM_BUS_ADDRESS") ||
                     QFileInfo::exists("/run/dbus/system_bus_socket") ||
                     QFileInfo::exists("/var/run/dbus/system_bus_socket");
    if (!bus || QBluetoothLocalDevice::allDevices().isEmpty())
        return false;
    const QBluetoothLocalDevice device;
    return device.isValid() && device.hostMode() != QBluetoothLocalDevice::HostPoweredOff;
}

void Subscribe(QLowEnergyService& service, const QBluetoothUuid& characteristic, const QByteArray& how) {
    const auto descriptor =
        service.characteristic(characteristic)
            .descriptor(QBluetoothUuid(QBluetoothUuid::DescriptorType::ClientCharacteristicConfiguration));
    if (descriptor.isValid())
        service.writeDescriptor(descriptor, how);
}

void Keep(std::vector<StrapLink::Bytes>& waiting, const QByteArray& value) {
    if (waiting.size() < MostWaiting)
        waiting.emplace_back(value.begin(), value.end());
}

} // namespace

QtStrapLink::QtStrapLink() {
    again_.setSingleShot(true);
    connect(&again_, &QTimer::timeout, this, [this] {
        if (state_ != State::Connected)
            Lose();
    });
}

QtStrapLink::~QtStrapLink() {
    Leave();
}

void QtStrapLink::Seek(const std::string& address) {
    Leave();
    address_ = QString::fromStdString(address);
    wanted_ = true;
    state_ = RadioOn() ? State::Seeking : State::NoRadio;
    if (state_ == State::Seeking)
        BeginSearch();
}

void QtStrapLink::Leave() {
    wanted_ = false;
    again_.stop();
    if (search_ != nullptr)
        search_->stop();
    if (measurement_ != nullptr && state_ == State::Connected)
        measurement_->writeCharacteristic(measurement_->characteristic(MeasurementControl()), StopCommand);
    measurement_.reset();
    heartRate_.reset();
    if (strap_ != nullptr)
        strap_->disconnectFromDevice();
    strap_.reset();
    ecg_.clear();
    heartRates_.clear();
    state_ = State::NoRadio;
}

StrapLink::State QtStrapLink::Now() {
    return state_;
}

std::vector<StrapLink::Bytes> QtStrapLink::TakeEcg() {
    return std::exchange(ecg_, {});
}

std::vector<StrapLink::Bytes> QtStrapLink::TakeHeartRates() {
    return std::exchange(heartRates_, {});
}

std::vector<std::string> QtStrapLink::Straps() {
    if ((search_ == nullptr || !search_->isActive()) && strap_ == nullptr && RadioOn())
        BeginSearch();
    std::vector<std::string> straps;
    for (const QBluetoothDeviceInfo& device : heard_)
        straps.push_back((device.address().toString() + " " + device.name()).toStdString());
    return straps;
}

void QtStrapLink::BeginSearch() {
    if (search_ == nullptr) {
        search_ = std::make_unique<QBluetoothDeviceDiscoveryAgent>();
        search_->setLowEnergyDiscoveryTimeout(SearchTime);
        connect(search_.get(), &QBluetoothDeviceDiscoveryAgent::deviceDiscovered, this, &QtStrapLink::Hear);
        connect(search_.get(), &QBluetoothDeviceDiscoveryAgent::finished, this,
                [this] { again_.start(BetweenSearches); });
        connect(search_.get(), &QBluetoothDeviceDiscoveryAgent::errorOccurred, this,
                [this] { again_.start(BetweenSearches); });
    }
    if (!search_->isActive())
        search_->start(QBluetoothDeviceDiscoveryAgent::LowEnergyMethod);
}

void QtStrapLink::Hear(const QBluetoothDeviceInfo& device) {
    const bool isStrap =
        device.serviceUuids().contains(HeartRate()) || device.serviceUuids().contains(Measurement());
    const bool named = !address_.isEmpty() && device.address().toString() == address_.toUpper();
    if (!isStrap && !named)
        return;
    const bool known = std::any_of(heard_.begin(), heard_.end(), [&device](const auto& each) {
        return each.address() == device.address();
    });
    if (!known)
        heard_.push_back(device);
    if (wanted_ && strap_ == nullptr && (named || address_.isEmpty()))
        Connect(device);
}

void QtStrapLink::Connect(const QBluetoothDeviceInfo& device) {
    search_->stop();
    again_.start(StartTime);
    strap_.reset(QLowEnergyController::createCentral(device));
    connect(strap_.get(), &QLowEnergyController::connected, strap_.get(),
            &QLowEnergyController::discoverServices);
    connect(strap_.get(), &QLowEnergyController::discoveryFinished, this, &QtStrapLink::OpenServices);
    // Never from within the controller's own signal, which would then have no sender any more.
    const auto loseLater = [this] { again_.start(0); };
    connect(strap_.get(), &QLowEnergyController::disconnected, this, [this, loseLater] {
        state_ = State::Seeking;
        loseLater();
    });
    connect(strap_.get(), &QLowEnergyController::errorOccurred, this, [this, loseLater] {
        state_ = State::Seeking;
        loseLater();
    });
    strap_->connectToDevice();
}

// Whatever there is of a strap goes, and it is sought again.
void QtStrapLink::Lose() {
    measurement_.reset();
    heartRate_.reset();
    strap_.reset();
    if (!wanted_)
        return;
    state_ = RadioOn() ? State::Seeking : State::NoRadio;
    if (state_ == State::Seeking)
        BeginSearch();
    else
        again_.start(BetweenSearches);
}

void QtStrapLink::OpenServices() {
    measurement_.reset(strap_->createServiceObject(Measurement()));
    heartRate_.reset(strap_->createServiceObject(HeartRate()));
    if (measurement_ == nullptr) {
        state_ = State::WithoutEcg;
        return;
    }
    for (QLowEnergyService* service : {measurement_.get(), heartRate_.get()}) {
        if (service == nullptr)
            continue;
        connect(service, &QLowEnergyService::characteristicChanged, this, &QtStrapLink::TakeValue);
        connect(service, &QLowEnergyService::stateChanged, this, [this, service](auto state) {
            if (state != QLowEnergyService::RemoteServiceDiscovered)
                return;
            if (service == measurement_.get())
                StartEcg();
            else
                Subscribe(*service, HeartRateMeasurement(), Notify);
        });
        service->discoverDetails();
    }
}

void QtStrapLink::StartEcg() {
    Subscribe(*measurement_, MeasurementControl(), Indicate);
    Subscribe(*measurement_, MeasurementData(), Notify);
    measurement_->writeCharacteristic(measurement_->characteristic(MeasurementControl()), StartCommand);
}

void QtStrapLink::TakeValue(const QLowEnergyCharacteristic& characteristic, const QByteArray& value) {
    if (characteristic.uuid() == MeasurementData()) {
        state_ = State::Connected;
        Keep(ecg_, value);
    } else if (characteristic.uuid() == HeartRateMeasurement()) {
        Keep(heartRates_, value);
    }
}

} // namespace pulselark
