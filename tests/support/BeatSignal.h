#pragma once

#include <cmath>
#include <vector>

namespace pulselark {

/// A made-up ECG of 128 samples a second in panel units: at each of `times` (s) a QRS of Gaussian form with
/// its peak of `height` there, Q and S beside it, and a T wave 0.25 s later.
inline std::vector<float> SignalWithBeats(const std::vector<double>& times, double seconds,
                                          double height = 500) {
    std::vector<float> samples(static_cast<std::size_t>(seconds * 128));
    const auto wave = [](double t, double width) { return std::exp(-t * t / (2 * width * width)); };
    for (std::size_t i = 0; i < samples.size(); ++i) {
        double value = 0;
        for (const double beat : times) {
            const double t = static_cast<double>(i) / 128 - beat;
            if (std::abs(t) < 0.6)
                value += wave(t, 0.011) - 0.2 * wave(std::abs(t) - 0.03, 0.009) + 0.2 * wave(t - 0.25, 0.04);
        }
        samples[i] = static_cast<float>(height * value);
    }
    return samples;
}

/// Beats every `interval` seconds from `first` on, to the end.
inline std::vector<double> SteadyBeats(double first, double interval, double end) {
    std::vector<double> times;
    for (int i = 0; first + i * interval < end; ++i)
        times.push_back(first + i * interval);
    return times;
}

} // namespace pulselark
