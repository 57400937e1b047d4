#include "session/Diagnostics.h"

#include <algorithm>

namespace pulselark {

RecordingDiagnostics Diagnostics;
float SignalQualityA = 0, SignalQualityB = 0;
Integer SignalLightA = 0, SignalLightB = 0;

void MeasuredTime::Take(double milliseconds) {
    Last = milliseconds;
    Worst = std::max(Worst, milliseconds);
}

void ResetDiagnostics() {
    Diagnostics = {};
    SignalQualityA = SignalQualityB = 0;
    SignalLightA = SignalLightB = 0;
}

} // namespace pulselark
