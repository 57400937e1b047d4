#include "analysis/InputCD.h"

#include "analysis/ColourSchemes.h"
#include "analysis/PanelDrawing.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>

namespace pulselark {

Integer EcgSecondWidth = 1024;
double EcgPixelUnit = 0;
Boolean EcgForceRedraw = Off;
EcgViewRecord EcgViewState;

namespace {

constexpr int SegmentsShown = EcgSecondsShown * SamplesPerSecond;
constexpr double UnitsPerSample = 8;

struct EcgChannel {
    const EcgBuffer& Ecg;
    Surface*& Panel;
    Surface*& Twin;
    Long& LastSecond;
    int CaptionText; // each panel names its channel
};

const EcgChannel channelA{EcgA, picIA, picIAP, EcgViewState.LastSecondA, TextEcgA};
const EcgChannel channelB{EcgB, picIB, picIBP, EcgViewState.LastSecondB, TextEcgB};

void DrawLevels(Surface& target, double middle, double unit) {
    const Colour grid = CurrentScheme().Grid;
    const double left = target.TextWidth("+500mV*");
    const double rightEdge = target.TextWidth("+500mV");
    const double halfHeight = target.TextHeight("2") / 2;
    struct Level {
        double Value;
        const char* Text;
    };
    for (const Level& level : {Level{0, "0mV"}, Level{500, "+500mV"}, Level{-500, "-500mV"}}) {
        const double y = middle + level.Value * unit;
        target.Line(left, y, target.Width(), y, grid);
        // In a flat panel the outer labels would lie on the middle one.
        if (level.Value == 0 || 500 * unit >= 2 * halfHeight)
            target.Print(rightEdge - target.TextWidth(level.Text), y + halfHeight, level.Text);
    }
}

std::string TimeLabel(Long second) {
    if (second == SessionSeconds && SessionRunning == Off && SessionSeconds >= 2)
        return "end";
    return second >= 0 && SessionSeconds >= 1 ? FormatMinSec(second) : "--:--";
}

void DrawTimes(Surface& target, Long second) {
    const double labelWidth = target.TextWidth("00:00");
    const double labelHeight = target.TextHeight("00:00");
    for (int i = 0; i <= EcgSecondsShown; ++i) {
        const double x = target.Width() - labelWidth / 2 - EcgSecondWidth * i * EcgPixelUnit;
        target.Line(x, labelHeight, x, target.Height(), CurrentScheme().Grid);
        const std::string label = TimeLabel(second - i);
        target.Print(x - target.TextWidth(label) / 2, labelHeight, label);
    }
}

void DrawCaption(Surface& target, int captionText, double timeWidth) {
    target.SetFont("Arial", 8, false);
    target.Print(target.Width() - timeWidth * 0.95 - EcgSecondWidth * EcgSecondsShown * EcgPixelUnit,
                 target.Height(), LanguageText(captionText));
}

// Newest sample at the right. The session's first sample and those before it are not drawn.
void DrawTrace(Surface& target, const EcgBuffer& ecg, Long second, double timeWidth) {
    const double middle = target.Height() / 2;
    const double unit = middle / EcgFullScale;
    const Long newest = second * SamplesPerSecond;
    const Long segments = std::clamp<Long>(newest - 2, 0, SegmentsShown);
    std::array<PanelPoint, SegmentsShown + 1> points;
    for (Long n = 0; n <= segments; ++n) {
        const double x = target.Width() - timeWidth / 2 - UnitsPerSample * EcgPixelUnit * n;
        points[static_cast<std::size_t>(n)] = {x, ecg.at(newest - n) * unit + middle};
    }
    const Image& ramp = picWGradient(ColourSchemeIndex);
    const Colour curve = ramp.PixelAt(ramp.Width - 1, ramp.Height / 2);
    const std::span<const PanelPoint> trace{points.data(), static_cast<std::size_t>(segments) + 1};
    target.SetDrawWidth(3);
    target.Curve(trace, MixColours(curve, PanelBackColour()));
    target.SetDrawWidth(1);
    target.Curve(trace, curve);
}

void DrawEcg(const EcgChannel& channel, Surface& target, Long second) {
    second = std::max<Long>(second, 2);
    labPTime.Caption = FormatMinSec(second);
    if (second == channel.LastSecond && EcgForceRedraw == Off)
        return;
    EcgForceRedraw = Off;
    channel.LastSecond = second;
    if (target.Width() <= 0 || target.Height() <= 0)
        return;

    // On the panel itself the old picture stands until the new trace is complete.
    const bool onPanel = &target == channel.Panel;
    if (onPanel && target.Persistent())
        target.SetPersistent(false);
    if (onPanel)
        target.Refresh();
    else
        target.Clear();

    SetPanelFont(target);
    const double timeWidth = target.TextWidth("00:00");
    DrawLevels(target, target.Height() / 2, target.Height() / 2 / EcgFullScale);
    DrawTimes(target, second);
    DrawCaption(target, channel.CaptionText, timeWidth);
    if (SessionSeconds > 0 || SessionRunning != Off)
        DrawTrace(target, channel.Ecg, second, timeWidth);
    SetPanelFont(target);
    if (onPanel)
        target.SetPersistent(true);
}

} // namespace

void DrawEcgA(Surface& target, Long second) {
    DrawEcg(channelA, target, second);
}
void DrawEcgB(Surface& target, Long second) {
    DrawEcg(channelB, target, second);
}

void RedrawEcg(Surface& targetA, Surface& targetB, Long second) {
    EcgForceRedraw = On;
    DrawEcgA(targetA, second);
    EcgForceRedraw = On;
    DrawEcgB(targetB, second);
}

void OpenEcgPanel(bool redraw) {
    PaintModuleBackground(Module::EcgInput);
    SetPanelFont(*picIA);
    EcgPixelUnit =
        std::max(0.0, picIA->Width() - picIA->TextWidth("00:00") - picIA->TextWidth("+500mV")) / 4096;
    // The second that stands there, as in the other panels; the cursor may have gone back to the start.
    if (redraw)
        RedrawEcg(*picIA, *picIB, EcgViewState.LastSecondA > 0 ? EcgViewState.LastSecondA : SessionTick);
}

} // namespace pulselark
