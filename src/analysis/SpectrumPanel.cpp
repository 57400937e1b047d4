#include "analysis/SpectrumPanel.h"

#include "analysis/GainDrag.h"
#include "analysis/Waterfall.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

Integer SpectrumMaxHz = 64;
double SpectrumGain = 100;
Integer SpectrumDepth = 6;
Integer SpectrumStep = 4568;
Integer SpectrumDepthKnob = WaterfallDepthKnob;
Integer SpectrumStepKnob = 1000;

namespace {

constexpr GainDragLimits GainLimits{80, 160, 1};
constexpr int LeastMaxHz = 10;
constexpr int MostMaxHz = 64;
constexpr double BinsPerHz = 8;

struct SpectrumView {
    Surface*& Panel;
    const SpectrumRing& Avg;
    const Integer& Slot;
    CaptionLabel& Caption;
    int CaptionText;
};
const SpectrumView viewA{picSA, SpectrumAvgA, SpectrumSlotA, labLeftS, TextSpectrumA};
const SpectrumView viewB{picSB, SpectrumAvgB, SpectrumSlotB, labRightS, TextSpectrumB};

struct Geometry {
    double Left; // of the plot
    double PixelsPerHz;
};
Geometry GeometryOf(const Surface& panel) {
    const double left = panel.TextWidth("00.0**");
    const double plot = panel.Width() - left - panel.TextWidth(" Hz**");
    return {left, SpectrumMaxHz > 0 ? plot / SpectrumMaxHz : 0};
}

void DrawFrequencyAxis(Surface& panel, const Geometry& geometry) {
    const double textHeight = panel.TextHeight("0");
    const Integer step = ChooseGridStep(panel.TextWidth("00**"), geometry.PixelsPerHz * SpectrumMaxHz,
                                        SpectrumMaxHz, GridSteps::Narrow);
    for (int k = 1; k <= SpectrumMaxHz / step; ++k) {
        const double x = geometry.Left + k * step * geometry.PixelsPerHz;
        panel.Line(x, textHeight, x, panel.Height(), CurrentScheme().Grid);
        const std::string number = std::to_string(k * step);
        const bool last = (k + 1) * step > SpectrumMaxHz;
        panel.Print(x - panel.TextWidth(number) / 1.4, textHeight, last ? number + " Hz" : number);
    }
}

void DrawAmplitudeAxis(Surface& panel, const Geometry& geometry, const CaptionLabel& caption) {
    constexpr int LastValue = 400;
    const VerticalAxis axis(panel, SpectrumGain > 0 ? static_cast<double>(Round(48000 / SpectrumGain)) : 0);
    const double rightEdge = panel.TextWidth("00.0*");
    for (int value = 0; value <= LastValue; value += axis.Step) {
        const double y = axis.LineY(value);
        const bool round = axis.LineWidth(value) == 2 || (value % 100 == 0 && axis.Step < 100);
        panel.SetDrawWidth(round ? 2 : 1);
        panel.Line(GridLineStart(panel, y, geometry.Left, caption), y, panel.Width(), y,
                   CurrentScheme().Grid);
        if (value == 0 || !axis.LabelFits(value))
            continue;
        const std::string label = FormatTenths(value / 10.0, true);
        panel.Print(rightEdge - panel.TextWidth(label), axis.LabelY(value), label);
    }
    panel.SetDrawWidth(1);
}

void DrawCurves(Surface& panel, const SpectrumView& view, const Geometry& geometry) {
    static std::array<PanelPoint, SpectrumBins> points; // drawn from one thread, one panel after another
    const double scale = panel.Height() * SpectrumGain / 3500000;
    const double base = panel.TextHeight("0") + 2;
    const WaterfallFill fill{geometry.Left, panel.Width() / 2, geometry.Left};
    constexpr int LoneWidth = 2;
    DrawWaterfall(panel, SpectrumDepth, view.Slot, LoneWidth, fill, [&](int slot, int age) {
        const auto& bins = view.Avg[slot];
        const double offset = age * static_cast<double>(SpectrumStep);
        for (int i = 1; i <= SpectrumBins; ++i) {
            points[static_cast<std::size_t>(i - 1)] = {geometry.Left +
                                                           (i - 1) * geometry.PixelsPerHz / BinsPerHz,
                                                       scale * (offset + bins[i]) + base};
        }
        return std::span<const PanelPoint>(points);
    });
}

void DrawSpectrum(const SpectrumView& view) {
    Surface& panel = *view.Panel;
    if (panel.Width() <= 0)
        return;
    panel.Clear();
    SetPanelFont(panel);
    const Geometry geometry = GeometryOf(panel);
    DrawFrequencyAxis(panel, geometry);
    DrawAmplitudeAxis(panel, geometry, view.Caption);
    if (RecordedSeconds > 1)
        DrawCurves(panel, view, geometry);
}

void PlaceSpectrumCaption(const SpectrumView& view) {
    SetPanelFont(*view.Panel);
    PlaceCaption(view.Caption, *view.Panel, LanguageText(view.CaptionText), GeometryOf(*view.Panel).Left,
                 CurrentScheme().Caption);
}

// Held at a limit, the range's anchor moves there.
void DragRange(double x, double width) {
    SpectrumTrackRecord& track = SpectrumTrack;
    const auto range =
        static_cast<int>(Round(track.DragMaxHz + (track.DragX - x) * width * TwipsPerPixel / 40000));
    SpectrumMaxHz = static_cast<Integer>(std::clamp(range, LeastMaxHz, MostMaxHz));
    if (range != SpectrumMaxHz) {
        track.DragMaxHz = SpectrumMaxHz;
        track.DragX = static_cast<float>(x);
    }
}

} // namespace

void DrawSpectrumA() {
    DrawSpectrum(viewA);
}
void DrawSpectrumB() {
    DrawSpectrum(viewB);
}

void RedrawSpectrum() {
    MakePassing(*picSA, *picSB);
    DrawSpectrumA();
    DrawSpectrumB();
}

void OpenSpectrumPanel(bool redraw) {
    PaintModuleBackground(Module::Spectrum);
    PlaceSpectrumCaption(viewA);
    PlaceSpectrumCaption(viewB);
    if (redraw) {
        DrawSpectrumA();
        DrawSpectrumB();
    }
}

void DragSpectrumScale(int button, double x, double y, double width) {
    if (!ScaleDragAllowed())
        return;
    SpectrumTrackRecord& track = SpectrumTrack;
    if (button == 0) {
        track.DragX = static_cast<float>(x);
        track.DragMaxHz = SpectrumMaxHz;
        AnchorGainDrag(track, y, SpectrumGain, GainLimits);
        return;
    }
    if (button != 1)
        return;
    const Integer rangeBefore = SpectrumMaxHz;
    DragRange(x, width);
    const double s = MoveGainDrag(track, y, GainLimits);
    if (SpectrumMaxHz == rangeBefore && s == track.DragGainApplied)
        return;
    SpectrumGain = GainOfScale(s);
    RedrawSpectrum();
    track.DragGainApplied = s;
}

Integer SpectrumDepthFromKnob(Integer position) {
    return static_cast<Integer>(Round(19 * KnobPlace(position)));
}

Integer SpectrumStepFromKnob(Integer position) {
    return static_cast<Integer>(Round(375 * std::exp(2.5 * KnobPlace(position))));
}

void ResetSpectrumDisplay() {
    SpectrumMaxHz = MostMaxHz;
    SpectrumGain = 100;
    SpectrumDepthKnob = WaterfallDepthKnob;
    SpectrumDepth = SpectrumDepthFromKnob(SpectrumDepthKnob);
    SpectrumStepKnob = 1000;
    SpectrumStep = SpectrumStepFromKnob(SpectrumStepKnob);
}

} // namespace pulselark
