#pragma once

#include <algorithm>
#include <cmath>

namespace pulselark {

/// Takes the resting level out of a signal: the level follows as a running mean over the first samples and
/// with a time constant of 1.5 s from then on (a first-order high pass at 0.11 Hz). A NaN passes unchanged.
class Baseline {
public:
    explicit Baseline(double rate) : longest_(std::max(1.0, rate * 1.5)) {}

    float Without(float sample) {
        if (std::isnan(sample))
            return sample;
        weight_ = std::min(weight_ + 1, longest_);
        level_ += (static_cast<double>(sample) - level_) / weight_;
        return static_cast<float>(static_cast<double>(sample) - level_);
    }

private:
    double longest_;
    double weight_ = 0;
    double level_ = 0;
};

} // namespace pulselark
