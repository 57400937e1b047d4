#pragma once

#include <string_view>
#include <vector>

/// Expert marks of a WFDB record, `.atr` (the MIT form: 16-bit words of a code and a step in time).
namespace pulselark {

struct WfdbMark {
    double Time = 0; ///< s from the first sample
    int Code = 0;    ///< 1 normal, 5 ventricular ectopic, 31 flutter wave, 32 and 33 flutter's ends, ...
};

/// The marks in their order, up to the end of the bytes or their end mark. `rate` in samples a second.
std::vector<WfdbMark> ReadWfdbMarks(std::string_view bytes, double rate);

/// Whether the code is that of a beat; a flutter wave is none.
bool IsBeat(int code);

/// Whether the beat starts in the sinus or in the atria's own rhythm and belongs to the interval series:
/// normal, bundle branch block, paced, nodal escape and unclassified count as normal; atrial, nodal,
/// ventricular and fused early beats do not.
bool IsNormalBeat(int code);

} // namespace pulselark
