#include "platform/monitors/SerialMonitor.h"

#include "platform/monitors/CytonDecoder.h"
#include "platform/monitors/LineDecoder.h"

#include <span>
#include <utility>

namespace pulselark {

namespace {

// In milliseconds.
constexpr std::int64_t LostAfter = 1500;
constexpr std::int64_t BetweenSearches = 1000;
constexpr std::size_t ManyBytes = 8 * CytonDecoder::PacketSize;
constexpr std::int64_t ReopenAfter = 5000; // a board that starts with its port needs 2 s for it

MonitorOptions StartOptions() {
    return MonitorOptions({{"protocol", OptionKind::Choice, "lines", 0, 0, {"lines", "cyton"}},
                           {"port", OptionKind::Device, "", 0, 0, {}},
                           {"speed",
                            OptionKind::Choice,
                            "115200",
                            0,
                            0,
                            {"9600", "19200", "38400", "57600", "115200", "230400", "250000", "460800",
                             "500000", "921600", "1000000", "2000000"}},
                           {"rate", OptionKind::Number, "250", 50, 2000, {}, false},
                           {"scale", OptionKind::Number, "1", 0.0001, 10000, {}, false},
                           {"first", OptionKind::Number, "1", 1, 8, {}},
                           {"channels", OptionKind::Choice, "1", 0, 0, {"1", "2"}}});
}

} // namespace

SerialMonitor::SerialMonitor(Clock& clock, MonitorWords words, std::unique_ptr<BytePort> port)
    : clock_(clock), words_(words), options_(StartOptions()), port_(std::move(port)) {}

SerialMonitor::~SerialMonitor() {
    ClosePort();
}

bool SerialMonitor::IsCyton() const {
    return open_ ? cyton_ : options_.Text("protocol") == "cyton";
}

Integer SerialMonitor::Init() {
    CloseC2(0);
    cyton_ = IsCyton();
    rate_ = Sig_Rate(1);
    const auto channels = static_cast<std::size_t>(options_.Number("channels"));
    if (IsCyton())
        decoder_ = std::make_unique<CytonDecoder>(static_cast<int>(options_.Number("first")));
    else
        decoder_ = std::make_unique<LineDecoder>();
    const double unit = IsCyton() ? CytonDecoder::MillivoltsPerCount * UnitsPerMillivolt : 1;
    factor_ = unit * options_.Number("scale");
    baselines_.assign(channels, Baseline(rate_));
    store_.Reset(channels);
    open_ = true;
    seenGood_ = false;
    unexplained_ = 0;
    lastGood_ = clock_.Milliseconds();
    OpenPort();
    return 1;
}

void SerialMonitor::OpenPort() {
    lastSearch_ = opened_ = clock_.Milliseconds();
    portOpen_ = port_->Open(options_.Text("port"), static_cast<int>(options_.Number("speed")));
    if (portOpen_)
        BeginStream();
}

void SerialMonitor::BeginStream() {
    decoder_->Restart();
    if (IsCyton())
        port_->Write("b");
}

void SerialMonitor::ClosePort() {
    if (!std::exchange(portOpen_, false))
        return;
    if (IsCyton())
        port_->Write("s");
    port_->Close();
}

std::string SerialMonitor::Error_Msg() {
    if (!open_ || Connected())
        return {};
    if (!portOpen_)
        return options_.Text("port").empty() ? words_(MonitorWord::NoPort)
                                             : words_(MonitorWord::PortFailed) + options_.Text("port");
    if (unexplained_ > ManyBytes)
        return words_(MonitorWord::NotAnEcg);
    return words_(seenGood_ ? MonitorWord::Lost : MonitorWord::Connecting);
}

Integer SerialMonitor::Tot_Channels() {
    return open_ ? static_cast<Integer>(store_.Channels())
                 : static_cast<Integer>(options_.Number("channels"));
}

double SerialMonitor::Sig_Rate(Integer /*channel*/) {
    if (open_)
        return rate_;
    return IsCyton() ? CytonDecoder::Rate : options_.Number("rate");
}

bool SerialMonitor::Connected() const {
    return portOpen_ && seenGood_ && clock_.Milliseconds() - lastGood_ < LostAfter;
}

void SerialMonitor::TakeBytes(std::int64_t now) {
    std::string bytes;
    if (!port_->Read(bytes)) {
        port_->Close();
        portOpen_ = false;
        lastSearch_ = now;
    }
    if (bytes.empty())
        return;
    std::vector<std::vector<float>> channels(store_.Channels());
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const int good = decoder_->Take(std::span(first, bytes.size()), channels);
    unexplained_ = good == 0 ? unexplained_ + bytes.size() : 0;
    if (good > 0) {
        lastGood_ = now;
        seenGood_ = true;
    }
    // Lost samples alone, before or after a loss, are the time that the clock measures.
    if (!Connected())
        return;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        for (const float sample : channels[i])
            store_.Put(i + 1, baselines_[i].Without(static_cast<float>(sample * factor_)));
    }
}

void SerialMonitor::Seek(std::int64_t now) {
    if (Connected() || now - lastSearch_ < BetweenSearches)
        return;
    lastSearch_ = now;
    if (!portOpen_ || now - opened_ >= ReopenAfter) {
        if (portOpen_)
            port_->Close();
        OpenPort();
    } else {
        BeginStream();
    }
}

bool SerialMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    if (!open_)
        return false;
    const std::int64_t now = clock_.Milliseconds();
    if (portOpen_)
        TakeBytes(now);
    Seek(now);
    store_.Take(static_cast<std::size_t>(channel), samples);
    return Connected();
}

void SerialMonitor::CloseC2(Integer /*handle*/) {
    ClosePort();
    open_ = false;
}

} // namespace pulselark
