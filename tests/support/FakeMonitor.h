#pragma once

#include "platform/EcgMonitor.h"
#include "support/FakeClock.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace pulselark {

/// An ECG monitor whose samples come by the fake clock: a narrow wave of 600 units every `Period` seconds on
/// a line that is not quite still. A test can cut the connection, make it silent, lose samples and let the
/// monitor's own clock go wrong.
class FakeEcgMonitor final : public EcgMonitor {
public:
    explicit FakeEcgMonitor(FakeClock& clock) : clock_(clock) {}

    double Rate = 128;   ///< what it says
    double Speed = 1;    ///< its clock beside the true one
    double Period = 0.8; ///< between two beats, s
    Integer Channels = 1;
    bool Connected = true; ///< Read_Buff says so; without, nothing comes
    bool Silent = false;   ///< nothing comes, and it does not know
    bool Opens = true;
    std::string Says;                                       ///< of itself when all is well
    int LoseEvery = 0;                                      ///< of so many samples one is lost; 0 for none
    float LostAs = std::numeric_limits<float>::quiet_NaN(); ///< what stands in a lost one's place
    std::int64_t Packet = 1;                                ///< samples come in packets of so many
    std::int64_t AheadB = 0; ///< samples that channel B has more when it is read, after A
    double OwnRate = 0;      ///< heart rate by its own reckoning
    int Inits = 0, Closes = 0;

    Integer Init() override {
        ++Inits;
        start_ = clock_.Now;
        for (std::int64_t& given : given_)
            given = 0;
        return Integer(Opens ? 7 : 0);
    }
    std::string Status() override { return Says; }
    std::string Error_Msg() override { return Opens ? "" : "no sensor"; }
    Integer Tot_Channels() override { return Channels; }
    std::string Sig_Name(Integer /*channel*/) override { return "ECG"; }
    double Max_Value(Integer /*channel*/) override { return 1000; }
    double Min_Value(Integer /*channel*/) override { return -1000; }
    double Sig_Rate(Integer /*channel*/) override { return Rate; }
    bool Read_Buff(Integer channel, std::vector<float>& samples) override {
        std::int64_t& given = given_[channel - 1];
        const auto due =
            static_cast<std::int64_t>(static_cast<double>(clock_.Now - start_) * Rate * Speed / 1000) +
            (channel == 2 ? AheadB : 0);
        for (; given < due / Packet * Packet; ++given) {
            if (Connected && !Silent)
                samples.push_back(SampleAt(given));
        }
        return Connected;
    }
    double OwnHeartRate() override { return OwnRate; }
    void CloseC2(Integer /*handle*/) override { ++Closes; }

private:
    float SampleAt(std::int64_t number) const {
        if (LoseEvery > 0 && number % LoseEvery == 0)
            return LostAs;
        const double t = static_cast<double>(number) / (Rate * Speed) + static_cast<double>(start_) / 1000;
        const double sinceBeat = std::fmod(t, Period) - Period / 2;
        return static_cast<float>(600 * std::exp(-sinceBeat * sinceBeat / (2 * 0.012 * 0.012)) +
                                  8 * std::sin(2 * 3.14159265358979 * 0.25 * t));
    }

    FakeClock& clock_;
    std::int64_t start_ = 0;
    std::int64_t given_[2] = {0, 0};
};

class FakeMonitors final : public EcgMonitors {
public:
    explicit FakeMonitors(FakeClock& clock) : Only(clock) {}
    FakeEcgMonitor Only; ///< its name is "fake"
    EcgMonitor* Find(const std::string& name) override { return name == "fake" ? &Only : nullptr; }
};

} // namespace pulselark
