#include "FuzzTarget.h"
#include "persistence/ConfigFile.h"
#include "session/ModulePanels.h"

#include <cmath>

using namespace pulselark;

namespace {

void PromiseOutcome(const FileOutcome& outcome, std::size_t size) {
    if (outcome.Number == 0)
        return;
    Promise(outcome.Number == 6 || outcome.Number == 13 || outcome.Number == 62);
    Promise(outcome.Line >= 1 && outcome.Line <= 56 && static_cast<std::size_t>(outcome.Line) <= size + 1);
}

void PromisePlace(const PanelPlace& place) {
    Promise(std::fabs(place.Left) <= 1e6F && std::fabs(place.Top) <= 1e6F);
    Promise(place.Width >= 0 && place.Width <= 1e6F && place.Height >= 0 && place.Height <= 1e6F);
}

} // namespace

// Any bytes are one of the told failures or a layout that can be drawn, and what is written of it comes back
// the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ResetModulePanels();
    PromiseOutcome(ReadConfigPreview(bytes), size);
    PromiseOutcome(ReadConfigText(bytes), size);
    for (const PanelPlace& panel : picModule)
        PromisePlace(panel);
    PromisePlace(frmScale);
    const std::string text = ConfigText();
    Promise(ReadConfigText(text).Number == 0 && ConfigText() == text);
    return 0;
}
