#include "analysis/CoherencePanel.h"

#include "analysis/GCoherence.h"
#include "analysis/GainDrag.h"
#include "analysis/RatioMarks.h"
#include "analysis/Waterfall.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

double CoherenceGain = 100;
Integer CoherenceDepth = 6;
double CoherenceStep = 0.0012 * std::exp(2.5);
Integer CoherenceDepthKnob = WaterfallDepthKnob;
Integer CoherenceStepKnob = 1000;
Boolean ShowBpmCoherence = On;

namespace {

constexpr GainDragLimits GainLimits{85, 130, 2};
constexpr double LeastRate = 37.5; // rates from here to the next are printed, these two not
constexpr double MostRate = 150;

GainDragRecord CoherenceDrag;

struct CoherenceView {
    Surface*& Panel;
    const CepstrumRing& Cepstrum;
    const Integer& Slot;
    const Integer& PeakIndex;
    const SecondsBuffer& Coherence;
    CaptionLabel& Caption;
    int CaptionText;
    // The unit of the time axis stands on 1.8, with channel A on 1.6 in a narrow panel; the two channels
    // write it differently.
    const char* Unit;
    bool UnitMovesWhenNarrow;
};
const CoherenceView viewA{picGCA,    CepstrumA,      CepstrumSlotA, PeakIndexA, CoherenceA,
                          labLeftGC, TextCoherenceA, "/Hz",         true};
const CoherenceView viewB{picGCB,     CepstrumB,      CepstrumSlotB, PeakIndexB, CoherenceB,
                          labRightGC, TextCoherenceB, " / Hz",       false};

double PlotLeft(const Surface& panel) {
    return panel.TextWidth("100%**");
}

// Where the panel's edge would cut the unit it stands above its number; no curve runs there.
void PrintUnitAbove(Surface& panel, const std::string& unit) {
    const double row = panel.TextHeight("0");
    panel.Print(panel.Width() - panel.TextWidth(unit), 2 * row, unit);
}

void DrawTimeAxis(Surface& panel, const CoherenceView& view) {
    constexpr int Ticks = 18;
    constexpr double NarrowWidth = 240;
    constexpr double WideWidth = 440;
    const double left = PlotLeft(panel);
    const double textHeight = panel.TextHeight("0");
    const bool narrow = panel.Width() < NarrowWidth;
    const int labelled = panel.Width() >= WideWidth ? 1 : narrow ? 4 : 2;
    const int unitTick = narrow && view.UnitMovesWhenNarrow ? 16 : 18;
    for (int n = 1; n <= Ticks; ++n) {
        const double x = left + n * (panel.Width() - left) / 20;
        panel.Line(x, textHeight, x, panel.Height(), CurrentScheme().Grid);
        if (n % labelled != 0)
            continue;
        const std::string number = FormatTenths(n / 10.0, false);
        const double start = x - panel.TextWidth(number) / 2;
        const bool unitFits = start + panel.TextWidth(number + view.Unit) <= panel.Width();
        panel.Print(start, textHeight, n == unitTick && unitFits ? number + view.Unit : number);
        if (n == unitTick && !unitFits)
            PrintUnitAbove(panel, view.Unit);
    }
}

void DrawPercentAxis(Surface& panel, const CaptionLabel& caption) {
    constexpr int LastValue = 100;
    const VerticalAxis axis(panel, CoherenceGain > 0 ? static_cast<double>(Round(12000 / CoherenceGain)) : 0);
    const double left = PlotLeft(panel);
    const double rightEdge = panel.TextWidth("100");
    for (int n = 1; n <= LastValue / axis.Step; ++n) {
        const int value = n * axis.Step;
        const double y = axis.LineY(value);
        panel.SetDrawWidth(axis.LineWidth(value));
        panel.Line(GridLineStart(panel, y, left, caption), y, panel.Width(), y, CurrentScheme().Grid);
        if (!axis.LabelFits(value))
            continue;
        const std::string number = std::to_string(value);
        const bool last = value == LastValue || !axis.LabelFits(value + axis.Step);
        panel.Print(rightEdge - panel.TextWidth(number), axis.LabelY(value), last ? number + "%" : number);
    }
    panel.SetDrawWidth(1);
    panel.Line(left, axis.TextHeight, panel.Width(), axis.TextHeight, CurrentScheme().Grid);
}

void DrawCurves(Surface& panel, const CoherenceView& view) {
    // Points 12 to 118; the lower ones hold the spectrum's sum.
    constexpr int Points = PeakLastPoint - PeakFirstPoint + 2;
    static std::array<PanelPoint, Points> points; // drawn from one thread, one panel after another
    const double left = PlotLeft(panel);
    const double pixelsPerPoint = (panel.Width() - left) * 4 / 512;
    const double scale = panel.Height() * CoherenceGain / 13.3;
    const double base = panel.TextHeight("0") + 2;
    const WaterfallFill fill{panel.TextWidth("100%") + pixelsPerPoint * (PeakFirstPoint - 1),
                             panel.Width() / 2, left};
    constexpr int LoneWidth = 1;
    DrawWaterfall(panel, CoherenceDepth, view.Slot, LoneWidth, fill, [&](int slot, int age) {
        const auto& curve = view.Cepstrum[slot];
        for (int i = 0; i < Points; ++i) {
            const int point = PeakFirstPoint + i;
            points[static_cast<std::size_t>(i)] = {left + pixelsPerPoint * (point - 1),
                                                   scale * (age * CoherenceStep + curve[point]) + base};
        }
        return std::span<const PanelPoint>(points);
    });
}

void PrintPeakRate(Surface& panel, const CoherenceView& view) {
    if (view.PeakIndex == 0)
        return;
    const auto rate = static_cast<double>(Round(3840.0 / view.PeakIndex));
    if (rate <= LeastRate || rate >= MostRate)
        return;
    const double margin = panel.TextWidth("00");
    panel.SetFont("Arial", 14, true);
    const double textHeight = panel.TextHeight("0");
    const double scale = panel.Height() * CoherenceGain / 13.3;
    panel.Print(view.PeakIndex * panel.Width() / 128 + margin,
                scale * view.Coherence.at(AnalysisSecond + 1) + 1.5 * textHeight,
                std::to_string(static_cast<int>(rate)) + " BPMc");
    SetPanelFont(panel);
}

void DrawCoherence(const CoherenceView& view) {
    Surface& panel = *view.Panel;
    if (panel.Width() <= 0)
        return;
    panel.Clear();
    SetPanelFont(panel);
    DrawTimeAxis(panel, view);
    DrawPercentAxis(panel, view.Caption);
    if (RecordedSeconds < 1)
        return; // nothing is recorded and no session is open
    DrawRatioMarks(panel, view.PeakIndex, PlotLeft(panel), (panel.Width() - PlotLeft(panel)) * 4 / 512);
    DrawCurves(panel, view);
    if (ShowBpmCoherence != Off)
        PrintPeakRate(panel, view);
}

void PlaceCoherenceCaption(const CoherenceView& view) {
    SetPanelFont(*view.Panel);
    PlaceCaption(view.Caption, *view.Panel, LanguageText(view.CaptionText), PlotLeft(*view.Panel),
                 CurrentScheme().Caption);
}

} // namespace

void DrawCoherenceA() {
    DrawCoherence(viewA);
}
void DrawCoherenceB() {
    DrawCoherence(viewB);
}

void RedrawCoherence() {
    MakePassing(*picGCA, *picGCB);
    DrawCoherenceA();
    DrawCoherenceB();
}

void ClearCoherenceRings() {
    CepstrumA.Fill({});
    DrawCoherenceA();
}

void OpenCoherencePanel(bool redraw) {
    PaintModuleBackground(Module::Coherence);
    PlaceCoherenceCaption(viewA);
    PlaceCoherenceCaption(viewB);
    if (redraw) {
        DrawCoherenceA();
        DrawCoherenceB();
    }
}

void DragCoherenceScale(int button, double y) {
    DragGainAlone(CoherenceDrag, button, y, CoherenceGain, GainLimits, [] {
        RefreshAnalysisSecond();
        RedrawCoherence();
    });
}

Integer CoherenceDepthFromKnob(Integer position) {
    return static_cast<Integer>(Round(19 * KnobPlace(position)));
}

double CoherenceStepFromKnob(Integer position) {
    return 0.0012 * std::exp(2.5 * KnobPlace(position));
}

void ResetCoherenceDisplay() {
    CoherenceGain = 100;
    CoherenceDepthKnob = WaterfallDepthKnob;
    CoherenceDepth = CoherenceDepthFromKnob(CoherenceDepthKnob);
    CoherenceStepKnob = 1000;
    CoherenceStep = CoherenceStepFromKnob(CoherenceStepKnob);
    ShowBpmCoherence = On;
}

} // namespace pulselark
