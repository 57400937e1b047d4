#include "analysis/PanelDrawing.h"

#include "analysis/ColourSchemes.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
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
        return {picHRVA, picHRVB};
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

void PaintModuleBackground(Module module) {
    for (Surface* panel : SurfacesOf(module)) {
        panel->SetPersistent(true);
        panel->StretchImage(picModBGSrc(ColourSchemeIndex), 0, 0, panel->Width(), panel->Height());
        panel->StorePicture(*panel);
        panel->SetForeColour(CurrentScheme().Text);
    }
}

std::pair<TwipsRect, TwipsRect> PanelPlaces(double moduleWidth, double moduleHeight, double titleHeight,
                                            bool channelBPresent) {
    const double room = moduleHeight - titleHeight;
    const double left = 120;
    const double width = std::max(0.0, moduleWidth - 240);
    const double top = titleHeight + 120;
    const double height = std::max(0.0, channelBPresent ? room / 2 - 180 : room - 240);
    return {{left, top, width, height}, {left, top + height + 120, width, channelBPresent ? height : 0}};
}

} // namespace pulselark
