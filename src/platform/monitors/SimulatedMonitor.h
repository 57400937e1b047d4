#pragma once

#include "platform/Clock.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/PanelMonitor.h"
#include "platform/monitors/SimulatedHeart.h"

#include <cstdint>
#include <vector>

namespace pulselark {

/// "Simulated ECG": an ECG from a seed on the clock of the program. The second channel is another person, who
/// breathes in the same rhythm and whose heart beats 8 % faster. Options:
///
///     seed       the same seed gives the same samples
///     rate       mean heart rate, 30 to 200 beats a minute
///     breathing  breaths a minute, 2 to 30
///     depth      how far breathing swings the rate, beats a minute to each side, 0 to 40
///     ectopic    per cent of the beats that come early, 0 to 50
///     noise      deviation of muscle noise in mV, 0 to 1; mains hum and wander of the line come with it
///     dropouts   disturbances a minute, 0 to 60: three of four lose some samples (20 to 120 ms), which are
///                NaN; the fourth is a loss of the connection for 3 to 6 seconds
///     channels   1 or 2
class SimulatedMonitor final : public PanelMonitor {
public:
    static constexpr double Rate = 250; ///< samples a second

    SimulatedMonitor(Clock& clock, MonitorWords words);

    MonitorOptions& Options() { return options_; }
    /// The beats as they truly are, seconds from `Init`; some are still to come.
    const std::vector<SimulatedBeat>& TrueBeats(Integer channel) const;

    Integer Init() override;
    std::string Error_Msg() override;
    Integer Tot_Channels() override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    bool ByProgramClock() const override { return true; }
    void CloseC2(Integer handle) override;

private:
    struct Disturbance {
        std::int64_t Begin = 0; // samples from the start
        std::int64_t End = 0;
        bool LosesConnection = false;
    };
    struct Person {
        SimulatedHeart Heart;
        SeededDraws Noise;
        double MuscleBefore = 0;
    };

    std::int64_t SamplesDue() const;
    Disturbance NextDisturbance(std::int64_t after);
    void CatchUp();
    void AddSample(Person& person, std::size_t channel);
    double NoiseMillivolts(Person& person, double time) const;
    bool InLoss() const;

    Clock& clock_;
    MonitorWords words_;
    MonitorOptions options_;
    std::vector<Person> persons_;
    SampleStore store_;
    SeededDraws disturbances_{0};
    Disturbance disturbance_;
    std::int64_t start_ = 0;    // reading of the clock
    std::int64_t position_ = 0; // samples so far, per channel
    double noise_ = 0;          // mV
    bool lossTold_ = false;
    bool open_ = false;
};

} // namespace pulselark
