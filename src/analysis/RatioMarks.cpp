#include "analysis/RatioMarks.h"

#include "analysis/ColourSchemes.h"
#include "analysis/PanelDrawing.h"
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace pulselark {

namespace {

struct RatioPair {
    double Ratio;
    Boolean& Shown;
    const char* Mark;
    Colour ColourScheme::*Ink;
};
const RatioPair goldenMean{std::numbers::phi, ShowGoldenRatio, "1.6", &ColourScheme::Accent};
const RatioPair octave{2, ShowOctaveRatio, "2", &ColourScheme::Fill};

void DrawPair(Surface& panel, const RatioPair& pair, int peakIndex, double left, double pixelsPerIndex) {
    if (pair.Shown == Off)
        return;
    // Half-way to the background: the curves stay in front.
    const Colour back = PanelBackColour();
    const Colour line = MixColours(CurrentScheme().*pair.Ink, back);
    const double baseline = panel.TextHeight("0");
    const std::array<double, 2> places{left + peakIndex / pair.Ratio * pixelsPerIndex,
                                       left + peakIndex * pair.Ratio * pixelsPerIndex};
    if (SolidFillGraph != Off) {
        const Colour foreground = panel.ForeColour();
        panel.SetForeColour(MixColours(MixColours(line, back), back));
        panel.FilledBox(places[0], baseline, std::min(places[1], panel.Width()), panel.Height());
        panel.SetForeColour(foreground);
    }
    panel.SetDrawWidth(1);
    for (const double x : places) {
        if (x >= panel.Width())
            continue;
        panel.Line(x, baseline, x, panel.Height(), line);
        panel.Print(x + 3, panel.Height() - 2, pair.Mark);
    }
}

} // namespace

void DrawRatioMarks(Surface& panel, int peakIndex, double left, double pixelsPerIndex) {
    if (peakIndex < 1)
        return;
    const RatioPair& last = OctaveInFront != Off ? octave : goldenMean;
    const RatioPair& first = OctaveInFront != Off ? goldenMean : octave;
    DrawPair(panel, first, peakIndex, left, pixelsPerIndex);
    DrawPair(panel, last, peakIndex, left, pixelsPerIndex);
}

} // namespace pulselark
