#include "feedback/SoundTester.h"

#include "base/Numbers.h"
#include "feedback/MIDI_CMD.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiSwitches.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace pulselark {

double SoundTesterX = 0, SoundTesterY = -25;

namespace {

// Steps of the curve to each side of the pad's middle, and of the hill itself.
constexpr int HalfCurve = 160;
constexpr int HalfHill = 60;
constexpr double Highest = 50;

double soundedX = 0, soundedY = 0;

double HillHeight() {
    return SoundTesterY + Highest;
}

} // namespace

void DragSoundTester(double dx, double dy) {
    constexpr double PlacePerPixel = 1.5, HeightPerPixel = 0.8;
    constexpr double PlaceLimit = 80, LeastHeight = -45;
    constexpr double SoundingPlaceStep = 3, SoundingHeightStep = 2;
    SoundTesterX = std::clamp(SoundTesterX + PlacePerPixel * dx, -PlaceLimit, PlaceLimit);
    SoundTesterY = std::clamp(SoundTesterY - HeightPerPixel * dy, LeastHeight, 0.0);
    const bool moved = std::abs(SoundTesterX - soundedX) >= SoundingPlaceStep ||
                       std::abs(SoundTesterY - soundedY) >= SoundingHeightStep;
    if (!moved || !MidiProbe())
        return;
    soundedX = SoundTesterX;
    soundedY = SoundTesterY;
    MidiBothOff();
    PlayTestChord(static_cast<int>(Round(SoundTesterX)), static_cast<int>(Round(2 * HillHeight())));
}

void DrawSoundTester(Surface& picST) {
    const double stepX = picST.Width() / (2 * HalfCurve);
    const double base = picST.Height() / 10;
    const double stepY = (picST.Height() - 2 * base) / Highest;
    std::array<PanelPoint, 2 * HalfCurve + 1> curve;
    int i = -HalfCurve;
    for (PanelPoint& point : curve) {
        const double place = i - SoundTesterX;
        const double height =
            std::abs(place) > HalfHill ? 0 : HillHeight() * std::cos(place / HalfHill * std::numbers::pi / 2);
        point = {(i + HalfCurve) * stepX, base + height * stepY};
        ++i;
    }
    picST.Clear();
    picST.Curve(curve, picST.ForeColour());
    constexpr double Mark = 3;
    const double x = (SoundTesterX + HalfCurve) * stepX;
    const double y = base + HillHeight() * stepY;
    picST.FilledBox(x - Mark, y - Mark, x + Mark, y + Mark);
}

void ResetSoundTester() {
    SoundTesterX = soundedX = 0;
    SoundTesterY = soundedY = -25;
}

} // namespace pulselark
