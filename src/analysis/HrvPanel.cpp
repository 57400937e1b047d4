#include "analysis/HrvPanel.h"

#include "analysis/ColourSchemes.h"
#include "analysis/GainDrag.h"
#include "analysis/PanelDrawing.h"
#include "session/AnalysisBuffers.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

double HrvGain = 100;
Boolean ShowHrvPower = On;

namespace {

constexpr GainDragLimits GainLimits{100, 160, 1};
constexpr double HrvPowerScale = 280;
constexpr Colour LfBarColour = 0x10C521;
constexpr Colour HfBarColour = 0xFF8E2B;

// The drawn bands meet at other bins than the summed ones: LF shows bin 38, which HF sums.
struct Band {
    int First, Last;
    Colour Value;
};
constexpr std::array<Band, 3> Bands{{{2, 10, 0x3A43DB}, {11, 38, 0x0FB41E}, {39, 127, 0xD47624}}};

GainDragRecord HrvDrag;

struct HrvView {
    Surface*& Panel;
    Surface*& Bars;
    const Series<float, HrvBins>& Power;
    const double& Lf;
    const double& Hf;
    Label& NoData;
    CaptionLabel& Caption;
    int CaptionText;
};
const HrvView viewA{picHRVA, picHRVPowerA,  HrvPowerA,  HrvLfA,
                    HrvHfA,  labHRVNoDataA, labLeftHRV, TextHrvPowerA};
const HrvView viewB{picHRVB, picHRVPowerB,  HrvPowerB,   HrvLfB,
                    HrvHfB,  labHRVNoDataB, labRightHRV, TextHrvPowerB};

double PlotLeft(const Surface& panel) {
    return panel.TextWidth("1000**");
}
double PlotWidth(const Surface& panel) {
    return panel.Width() - panel.TextWidth("1000** Hz**");
}

void DrawFrequencyAxis(Surface& panel) {
    constexpr int Ticks = 5;
    const double textHeight = panel.TextHeight("0");
    for (int n = 0; n <= Ticks; ++n) {
        const double x = n * PlotWidth(panel) / Ticks + PlotLeft(panel);
        panel.Line(x, textHeight, x, panel.Height(), CurrentScheme().Grid);
        const std::string number = FormatTenths(n / 10.0, false);
        panel.Print(x - panel.TextWidth(number) / 1.6, textHeight, n == Ticks ? number + " Hz" : number);
    }
}

void DrawPowerAxis(Surface& panel, const CaptionLabel& caption) {
    constexpr int LastValue = 50;
    constexpr int UnitsPerValue = 100;
    const VerticalAxis axis(panel, HrvGain > 0 ? static_cast<double>(Round(12000 / HrvGain)) : 0);
    const double left = PlotLeft(panel);
    const double rightEdge = panel.TextWidth("1000");
    for (int k = 0; k <= LastValue / axis.Step; ++k) {
        const int value = k * axis.Step;
        const double y = axis.LineY(value);
        panel.SetDrawWidth(axis.LineWidth(value));
        panel.Line(GridLineStart(panel, y, left, caption), y, panel.Width(), y, CurrentScheme().Grid);
        if (k == 0 || !axis.LabelFits(value))
            continue;
        const std::string label = std::to_string(value * UnitsPerValue);
        panel.Print(rightEdge - panel.TextWidth(label), axis.LabelY(value), label);
    }
    panel.SetDrawWidth(1);
}

void DrawBand(const HrvView& view, int number) {
    Surface& panel = *view.Panel;
    const Band& band = Bands.at(static_cast<std::size_t>(number - 1));
    const bool solid = SolidGraphs != Off;
    const Colour mix = MixColours(band.Value, PanelBackColour());
    const double left = PlotLeft(panel);
    const double pixelsPerBin = PlotWidth(panel) / HrvBins;
    const double scale = panel.Height() * HrvGain / 20000;
    const double base = panel.TextHeight("0") + 2;
    std::array<PanelPoint, HrvBins> points;
    std::size_t count = 0;
    for (int i = band.First; i <= band.Last + 1; ++i)
        points[count++] = {left + (i - 1) * pixelsPerBin, scale * view.Power[i] + base};
    const std::span<const PanelPoint> curve{points.data(), count};
    if (solid) {
        panel.SetDrawWidth(1);
        panel.Curve(curve, mix);
        if (panel.Persistent()) {
            FillUnderCurve(panel, curve, curve.front().X,
                           left + (band.First + band.Last) / 2.0 * pixelsPerBin, mix, band.Value, left);
        }
        return;
    }
    panel.SetDrawWidth(3);
    panel.Curve(curve, mix);
    panel.SetDrawWidth(1);
    panel.Curve(curve, band.Value);
}

void TellMissingTime(const HrvView& view) {
    if (!timReplay.Enabled && !timProcess.Enabled)
        return;
    view.NoData.Caption = LanguageText(TextHrvNeedsData) + FormatMinSec(HrvMinimumSeconds - AnalysisSecond);
    view.NoData.Visible = true;
}

void DrawHrv(const HrvView& view) {
    Surface& panel = *view.Panel;
    const bool enough = AnalysisSecond >= HrvMinimumSeconds;
    if (enough) {
        view.NoData.Visible = false;
        view.NoData.Caption.clear();
    } else {
        TellMissingTime(view);
    }
    if (panel.Width() <= 0)
        return;
    panel.Clear();
    SetPanelFont(panel);
    DrawFrequencyAxis(panel);
    DrawPowerAxis(panel, view.Caption);
    if (!enough)
        return;
    for (const int band : {1, 2, 3})
        DrawBand(view, band);
    panel.SetDrawWidth(1);
    const double baseline = panel.TextHeight("0");
    panel.Line(PlotLeft(panel), baseline, panel.Width(), baseline, CurrentScheme().Grid);
}

// The bars' panel is 100 by 100 units; what goes beyond runs out of it.
void DrawBars(const HrvView& view) {
    Surface& bars = *view.Bars;
    if (bars.Width() <= 0)
        return;
    bars.Clear();
    if (AnalysisSecond <= HrvMinimumSeconds)
        return;
    const auto height = [&](double power) {
        return std::sqrt(power) * bars.Height() / std::sqrt(HrvPowerScale);
    };
    bars.SetFillStyleSolid();
    bars.SetDrawWidth(1);
    const double lf = height(view.Lf);
    bars.SetForeColour(LfBarColour);
    bars.FilledBox(0, 0, bars.Width(), lf);
    bars.SetForeColour(HfBarColour);
    bars.FilledBox(0, lf, bars.Width(), lf + height(view.Hf));
}

void PlaceHrvCaption(const HrvView& view) {
    SetPanelFont(*view.Panel);
    PlaceCaption(view.Caption, *view.Panel, LanguageText(view.CaptionText), PlotLeft(*view.Panel),
                 CurrentScheme().Caption);
}

} // namespace

void DrawHrvA() {
    DrawHrv(viewA);
}
void DrawHrvB() {
    DrawHrv(viewB);
}
void DrawHrvBandA(int band) {
    DrawBand(viewA, band);
}
void DrawHrvBandB(int band) {
    DrawBand(viewB, band);
}
void DrawHrvBarsA() {
    DrawBars(viewA);
}
void DrawHrvBarsB() {
    DrawBars(viewB);
}

void RedrawHrv() {
    MakePassing(*picHRVA, *picHRVB);
    DrawHrvA();
    DrawHrvB();
}

void OpenHrvPanel(bool redraw) {
    PaintModuleBackground(Module::Hrv);
    PlaceHrvCaption(viewA);
    PlaceHrvCaption(viewB);
    if (redraw) {
        DrawHrvA();
        DrawHrvB();
        DrawHrvBarsA();
        DrawHrvBarsB();
    }
}

void DragHrvScale(int button, double y) {
    DragGainAlone(HrvDrag, button, y, HrvGain, GainLimits, &RedrawHrv);
}

void ResetHrvDisplay() {
    HrvGain = 100;
    ShowHrvPower = On;
}

} // namespace pulselark
