#include "FuzzTarget.h"
#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/AppSettings.h"
#include "persistence/TrainingSettings.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/Settings.h"

using namespace pulselark;

namespace {

void PromiseOutcome(const FileOutcome& outcome, std::size_t size) {
    if (outcome.Number == 0)
        return;
    Promise(outcome.Number == 6 || outcome.Number == 13 || outcome.Number == 62);
    Promise(outcome.Line >= 1 && static_cast<std::size_t>(outcome.Line) <= size + 1);
}

void PromiseRanges() {
    Promise(SpectrumDepth >= 0 && SpectrumDepth <= 19 && CoherenceDepth >= 0 && CoherenceDepth <= 19);
    Promise(SpectrumMaxHz >= 10 && SpectrumMaxHz <= 64 && SpectrumGain > 0 && SpectrumGain < 2000);
    Promise(HistorySpanSeconds >= 10 && HistorySpanSeconds <= 364 && HistoryStyle >= 1 && HistoryStyle <= 9);
    Promise(ChannelMode >= 1 && ChannelMode <= 3 && LanguageIndex >= 0 && LanguageIndex < LanguageCount);
    Promise(ColourSchemeIndex >= 0 && ColourSchemeIndex < ColourSchemeCount);
    Promise(MovingAverageWidth >= 0 && MovingAverageWidth <= 29);
    Promise(DynamicIndexInterval >= 4 && DynamicIndexInterval <= 61 && BreathingRate >= 2);
    Promise(BreathingRate <= 60 && BreathingBalance >= 1 && BreathingBalance <= 10);
}

} // namespace

// Any bytes are one of the told failures or settings in their ranges, and what is written of them comes back
// the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ResetSettings();
    SetDefaultSettings();
    PromiseOutcome(ReadAppSettingsText(bytes), size);
    PromiseRanges();
    PromiseOutcome(ReadTrainingSettingsText(bytes), size);
    PromiseRanges();
    const std::string app = AppSettingsText();
    const std::string training = TrainingSettingsText();
    ResetSettings();
    SetDefaultSettings();
    Promise(ReadAppSettingsText(app).Number == 0 && AppSettingsText() == app);
    Promise(ReadTrainingSettingsText(training).Number == 0 && TrainingSettingsText() == training);
    return 0;
}
