#include "platform/monitors/SimulatedMonitor.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace pulselark {

namespace {

constexpr float Lost = std::numeric_limits<float>::quiet_NaN();

MonitorOptions StartOptions() {
    return MonitorOptions({{"rate", OptionKind::Number, "65", 30, 200, {}},
                           {"breathing", OptionKind::Number, "6", 2, 30, {}, false},
                           {"depth", OptionKind::Number, "6", 0, 40, {}, false},
                           {"ectopic", OptionKind::Number, "0", 0, 50, {}, false},
                           {"noise", OptionKind::Number, "0.01", 0, 1, {}, false},
                           {"dropouts", OptionKind::Number, "0", 0, 60, {}, false},
                           {"channels", OptionKind::Choice, "2", 0, 0, {"1", "2"}},
                           {"seed", OptionKind::Number, "1", 0, 4294967295.0, {}}});
}

HeartManner MannerOf(const MonitorOptions& options, int person) {
    HeartManner manner;
    manner.Seed = static_cast<std::uint32_t>(options.Number("seed")) + 7919U * static_cast<unsigned>(person);
    manner.Rate = options.Number("rate") * (person == 0 ? 1 : 1.08);
    manner.Breathing = options.Number("breathing");
    manner.Depth = options.Number("depth");
    manner.Ectopic = options.Number("ectopic");
    manner.Lateness = person == 0 ? 0.5 : 0.8;
    return manner;
}

} // namespace

SimulatedMonitor::SimulatedMonitor(Clock& clock, MonitorWords words)
    : clock_(clock), words_(words), options_(StartOptions()) {}

const std::vector<SimulatedBeat>& SimulatedMonitor::TrueBeats(Integer channel) const {
    return persons_.at(static_cast<std::size_t>(channel) - 1).Heart.Beats();
}

// A connection that is lost comes back in its own time, whether somebody opens the monitor anew or not.
Integer SimulatedMonitor::Init() {
    const bool goesOn = !persons_.empty() && InLoss();
    open_ = true;
    lossTold_ = goesOn;
    if (goesOn)
        return 1;
    noise_ = options_.Number("noise");
    persons_.clear();
    const int channels = static_cast<int>(options_.Number("channels"));
    for (int person = 0; person < channels; ++person) {
        const HeartManner manner = MannerOf(options_, person);
        persons_.push_back({SimulatedHeart(manner), SeededDraws(~manner.Seed), 0});
    }
    store_.Reset(persons_.size());
    disturbances_ = SeededDraws(static_cast<std::uint32_t>(options_.Number("seed")) ^ 0x5EEDU);
    disturbance_ = NextDisturbance(0);
    start_ = clock_.Milliseconds();
    position_ = 0;
    return 1;
}

std::string SimulatedMonitor::Error_Msg() {
    return open_ && InLoss() ? words_(MonitorWord::Lost) : std::string();
}

Integer SimulatedMonitor::Tot_Channels() {
    return static_cast<Integer>(open_ ? static_cast<double>(persons_.size()) : options_.Number("channels"));
}

double SimulatedMonitor::Sig_Rate(Integer /*channel*/) {
    return Rate;
}

std::int64_t SimulatedMonitor::SamplesDue() const {
    return (clock_.Milliseconds() - start_) * static_cast<std::int64_t>(Rate) / 1000;
}

bool SimulatedMonitor::InLoss() const {
    const std::int64_t now = SamplesDue();
    return disturbance_.LosesConnection && now >= disturbance_.Begin && now < disturbance_.End;
}

SimulatedMonitor::Disturbance SimulatedMonitor::NextDisturbance(std::int64_t after) {
    const double perMinute = options_.Number("dropouts");
    if (perMinute <= 0)
        return {std::numeric_limits<std::int64_t>::max(), 0, false};
    const double wait = -std::log(1 - disturbances_.Even()) * 60 / perMinute;
    const bool loses = disturbances_.Even() < 0.25;
    const double length = loses ? 3 + 3 * disturbances_.Even() : 0.02 + 0.1 * disturbances_.Even();
    const auto begin = after + static_cast<std::int64_t>(wait * Rate);
    return {begin, begin + static_cast<std::int64_t>(length * Rate), loses};
}

double SimulatedMonitor::NoiseMillivolts(Person& person, double time) const {
    if (noise_ <= 0)
        return 0;
    const auto wave = [time](double hertz) { return std::sin(2 * std::numbers::pi * hertz * time); };
    person.MuscleBefore = 0.3 * person.MuscleBefore + std::sqrt(1 - 0.3 * 0.3) * person.Noise.Normal();
    const double wander = wave(0.31) + 0.6 * wave(0.117);
    return noise_ * (person.MuscleBefore + 0.4 * wave(50) + 1.5 * wander);
}

void SimulatedMonitor::AddSample(Person& person, std::size_t channel) {
    const double time = static_cast<double>(position_) / Rate;
    const double millivolts = person.Heart.MillivoltsAt(time) + NoiseMillivolts(person, time);
    const bool disturbed = position_ >= disturbance_.Begin;
    // What a lost connection would have carried is not delivered, if the reader has been told of the loss.
    if (disturbed && disturbance_.LosesConnection && lossTold_)
        return;
    store_.Put(channel, disturbed ? Lost : static_cast<float>(millivolts * UnitsPerMillivolt));
}

void SimulatedMonitor::CatchUp() {
    const std::int64_t due = SamplesDue();
    if (InLoss())
        lossTold_ = true;
    for (; position_ < due; ++position_) {
        if (position_ >= disturbance_.End && position_ > disturbance_.Begin) {
            disturbance_ = NextDisturbance(position_);
            lossTold_ = InLoss();
        }
        for (std::size_t person = 0; person < persons_.size(); ++person)
            AddSample(persons_[person], person + 1);
    }
}

bool SimulatedMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    if (!open_)
        return false;
    CatchUp();
    store_.Take(static_cast<std::size_t>(channel), samples);
    return !InLoss();
}

void SimulatedMonitor::CloseC2(Integer /*handle*/) {
    open_ = false;
}

} // namespace pulselark
