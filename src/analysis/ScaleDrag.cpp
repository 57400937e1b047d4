#include "analysis/ScaleDrag.h"

#include "analysis/CoherencePanel.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "session/PanelSurfaces.h"

namespace pulselark {

namespace {

struct Scales {
    Integer SpectrumRange;
    double Spectrum, Coherence, Hrv, History;
    Integer Span;
};
Scales atPress{};

} // namespace

void BeginScaleDrag() {
    atPress = {SpectrumMaxHz, SpectrumGain, CoherenceGain, HrvGain, HistoryGain, HistorySpanSeconds};
}

void CancelScaleDrag() {
    SpectrumMaxHz = atPress.SpectrumRange;
    SpectrumGain = atPress.Spectrum;
    CoherenceGain = atPress.Coherence;
    HrvGain = atPress.Hrv;
    HistoryGain = atPress.History;
    HistorySpanSeconds = atPress.Span;
    EndScaleDrag();
}

void EndScaleDrag() {
    for (Surface* panel : {picSA, picSB, picGCA, picGCB, picHRVA, picHRVB})
        panel->SetPersistent(true);
    DrawSpectrumA();
    DrawSpectrumB();
    DrawCoherenceA();
    DrawCoherenceB();
    DrawHrvA();
    DrawHrvB();
    EndHistoryDrag();
}

} // namespace pulselark
