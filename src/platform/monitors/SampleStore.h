#pragma once

#include <cstddef>
#include <vector>

namespace pulselark {

/// Samples of a monitor's channels that have arrived and wait to be read. Channels count from 1.
class SampleStore {
public:
    void Reset(std::size_t channels) { pending_.assign(channels, {}); }
    std::size_t Channels() const { return pending_.size(); }

    /// A channel that there is not takes and gives nothing.
    void Put(std::size_t channel, float sample) {
        if (channel >= 1 && channel <= pending_.size() && pending_[channel - 1].size() < Most)
            pending_[channel - 1].push_back(sample);
    }
    void PutInAll(float sample) {
        for (std::size_t channel = 1; channel <= pending_.size(); ++channel)
            Put(channel, sample);
    }
    /// Appends what waits to `samples`; it then waits no more.
    void Take(std::size_t channel, std::vector<float>& samples) {
        if (channel < 1 || channel > pending_.size())
            return;
        std::vector<float>& waiting = pending_[channel - 1];
        samples.insert(samples.end(), waiting.begin(), waiting.end());
        waiting.clear();
    }

private:
    // A channel that nobody reads must not fill the memory: more than an hour at any monitor's rate.
    static constexpr std::size_t Most = std::size_t{1} << 22U;

    std::vector<std::vector<float>> pending_;
};

/// Panel units of one millivolt.
inline constexpr double UnitsPerMillivolt = 500;
/// Range of a monitor whose samples are in panel units: from edge to edge of the panel.
inline constexpr double PanelRange = 1000;

} // namespace pulselark
