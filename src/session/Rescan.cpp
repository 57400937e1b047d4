#include "session/Rescan.h"

#include "analysis/GCoherence.h"
#include "analysis/Spectrum.h"
#include "platform/Platform.h"
#include "platform/ProgressDoor.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <optional>

namespace pulselark {

void RescanSession(bool showProgress) {
    constexpr Long SecondsBetweenYields = 10;
    std::optional<ProgressDoor> door;
    if (showProgress)
        door.emplace("scanning..");
    ShowStatus(SessionName + LanguageText(TextScanning));
    Rescanning = On;
    for (Long second = 1; second <= SessionSeconds; ++second) {
        AnalysisSecond = second;
        CalcSpectrumA();
        CalcSpectrumB();
        CalcCoherenceA();
        CalcCoherenceB();
        if (second % SecondsBetweenYields == 0 && door)
            door->Pass(second, SessionSeconds);
    }
    SmoothSeries();
    Rescanning = Off;
    door.reset();
    ThePlatform().MessageLoop.Yield();
}

} // namespace pulselark
