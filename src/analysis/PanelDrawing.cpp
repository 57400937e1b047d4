#include "analysis/PanelDrawing.h"

#include "analysis/ColourSchemes.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace pulselark {

namespace {

constexpr std::array<Integer, 8> StepCandidates{1, 2, 5, 10, 20, 50, 100, 200};
constexpr std::size_t NarrowCandidates = 6;

std::vector<Surface*> SurfacesOf(Module module) {
    switch (module) {
    case Module::EcgInput:
        return {picIA, picIB, picIAP, picIBP};
    case Module::Spectrum:
        return {picSA, picSB};
    case Module::Coherence:
        return {picGCA, picGCB};
    case Module::History:
        return {picHisA, picHisB};
    case Module::Hrv:
        return {picHRVA, picHRVB, picHRVPowerA, picHRVPowerB};
    }
    return {};
}

} // namespace

Integer ChooseGridStep(double leastDistance, double length, double count, GridSteps candidates) {
    const double perUnit = count > 0 ? length / count : 0;
    const std::size_t last = (candidates == GridSteps::Wide ? StepCandidates.size() : NarrowCandidates) - 1;
    std::size_t i = 0;
    while (i < last && perUnit * StepCandidates[i] < leastDistance)
        ++i;
    return StepCandidates[i];
}

std::string FormatMinSec(Long seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d", static_cast<int>(seconds / 60 % 60),
                  static_cast<int>(seconds % 60));
    return text;
}

std::string FormatTenths(double value, bool bare) {
    const std::int64_t tenths = Round(value * 10);
    const std::string whole = std::to_string(tenths / 10);
    return (bare && whole == "0" ? "" : whole) + "." + std::to_string(tenths % 10);
}

LayerColours ColoursOfLayer(int layer, int depth) {
    const Image& ramp = picWGradient(ColourSchemeIndex);
    const double place = depth > 0 ? layer / (depth + 0.1) * (ramp.Width - 1) : ramp.Width - 1;
    const Colour back = PanelBackColour();
    const Colour onRamp = ramp.PixelAt(static_cast<int>(Round(place)), ramp.Height / 2);
    return {SolidGraphs != Off ? MixColours(CurrentScheme().Fill, back) : onRamp, MixColours(onRamp, back)};
}

Colour PanelBackColour() {
    const Image& back = picModBGSrc(ColourSchemeIndex);
    return back.PixelAt(back.Width / 2, back.Height / 2);
}

void TileImage(Surface& surface, const Image& image, TileMode mode) {
    const double width = surface.Width();
    const double height = surface.Height();
    if (width <= 0 || height <= 0 || image.Pixels.empty())
        return;
    if (mode == TileMode::Stretch) {
        surface.StretchImage(image, 0, 0, width, height);
        return;
    }
    const auto tiles = [](double length, int tile) { return static_cast<int>(std::ceil(length / tile)); };
    for (int row = 1; row <= tiles(height, image.Height); ++row) {
        for (int column = 0; column < tiles(width, image.Width); ++column) {
            surface.StretchImage(image, column * image.Width, height - row * image.Height, image.Width,
                                 image.Height);
        }
    }
}

void PaintModuleBackground(Module module) {
    for (Surface* panel : SurfacesOf(module)) {
        panel->SetPersistent(true);
        TileImage(*panel, picModBGSrc(ColourSchemeIndex), TileMode::Stretch);
        panel->StorePicture(*panel);
        panel->SetForeColour(CurrentScheme().Text);
    }
}

void SetPanelFont(Surface& panel) {
    panel.SetFont("MS Sans Serif", 8, false);
}

void PlaceCaption(CaptionLabel& caption, Surface& panel, const std::string& text, double left,
                  Colour colour) {
    constexpr double Padding = 4;
    panel.SetFont("Arial", 8, false);
    caption.Caption = text;
    caption.ForeColour = colour;
    caption.Left = left;
    caption.Width = panel.TextWidth(text) + 2 * Padding;
    caption.Visible = !text.empty() && panel.Width() > 0;
    SetPanelFont(panel);
}

double GridLineStart(const Surface& panel, double y, double left, const CaptionLabel& caption) {
    const bool throughCaption = y > panel.Height() - caption.Height;
    return throughCaption ? caption.Left + caption.Width + panel.TextWidth("*") : left;
}

VerticalAxis::VerticalAxis(const Surface& panel, double unitsInHeight)
    : UnitsInHeight(std::max(unitsInHeight, 1.0)),
      Step(ChooseGridStep(panel.TextHeight("100"), panel.Height(), UnitsInHeight, GridSteps::Wide)),
      TextHeight(panel.TextHeight("0")), PanelHeight(panel.Height()) {}

int VerticalAxis::LineWidth(double value) const {
    return std::fmod(value, 10) == 0 && Step < 10 ? 2 : 1;
}

void FillUnderCurve(Surface& panel, std::span<const PanelPoint> curve, double baselineLeft, double fillX,
                    Colour border, Colour fill, double gridLeft) {
    if (curve.size() < 2)
        return;
    const double baseline = panel.TextHeight("0");
    const PanelPoint& first = curve.front();
    const PanelPoint& last = curve.back();
    const auto closeEnds = [&](Colour colour) {
        panel.Line(first.X, first.Y, first.X, baseline, colour);
        panel.Line(last.X, last.Y, last.X, baseline, colour);
    };
    closeEnds(border);
    panel.Line(baselineLeft, baseline, last.X, baseline, border);
    panel.SetFillStyleSolid();
    panel.SetFillColour(fill);
    panel.FloodFill(static_cast<int>(Round(fillX)), static_cast<int>(Round(panel.Height() - baseline - 1)),
                    border);
    panel.Line(gridLeft, baseline, panel.Width(), baseline, CurrentScheme().Grid);
    closeEnds(fill);
}

void MakePassing(Surface& a, Surface& b) {
    for (Surface* panel : {&a, &b}) {
        if (!panel->Persistent())
            continue;
        panel->Clear();
        panel->SetPersistent(false);
    }
}

bool ScaleDragAllowed() {
    const bool locked = SessionRunning != Off && LockScreens != Off;
    return !SessionBusy() && SeekBusy == Off && !locked;
}

void RefreshAnalysisSecond() {
    if (SessionRunning != Off)
        AnalysisSecond = std::max(RecordedSeconds, SessionTick);
}

double GainOfScale(double s) {
    return std::pow(100, s / 100);
}

double ScaleOfGain(double gain) {
    return 100 * std::log(gain) / std::log(100);
}

double KnobPlace(Integer position) {
    return std::clamp(position / 1000.0, 0.0, 1.0);
}

} // namespace pulselark
