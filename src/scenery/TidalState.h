#pragma once

#include "platform/link/LinkFormat.h"

#include <array>
#include <cstddef>
#include <vector>

namespace pulselark {

/// What the tidal view shows: the last of what came over the link. Plain C++.
///
/// Command 243 sets the second, a value is the coherence of that second in percent, the arrays are its
/// spectra, 244 and a second that lies before the last one clear the history, 227 ends the program, 500 to
/// 504 choose the colours, 123123 the place, 239 and 241, 240, 242 and 233 step behind and come forward.
/// Everything else is ignored.
class TidalState {
public:
    static constexpr std::size_t HistorySeconds = 300;

    /// Takes in a message; true when something to be seen has changed.
    bool Take(const LinkMessage& message);

    int Second = 0;
    std::array<float, LinkSpectrumItems> Spectrum{};   ///< magnitude, item i at i * 0.125 Hz
    std::array<float, LinkHeartRateItems> HeartRate{}; ///< power, item i at i / 256 Hz
    double SpectrumScale = 0, HeartRateScale = 0;      ///< highest item but the first, falling slowly
    std::vector<float> Coherence;                      ///< percent, oldest first, one a second
    int Scheme = 0;

private:
    bool TakeCommand(int command, double p1);
    void TakeCoherence(double value);
};

} // namespace pulselark
