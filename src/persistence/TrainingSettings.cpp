#include "persistence/TrainingSettings.h"

#include "persistence/OmsRecords.h"
#include "persistence/SettingsFile.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/Settings.h"

namespace pulselark {

namespace {

template <class Records>
void TrainingSettingsLines(Records& records) {
    records.Real(BreathingRate, 2, 60);
    records.Whole(DynamicIndexInterval, 4, 61);
    records.Flag(AutoStartBreathing);
    records.Flag(AutoPlayMusic);
    records.Whole(AdjustVolume, 0, 100);
    records.Reserved();
    records.Flag(AlwaysFirstSong);
    records.Flag(AutoRepeat);
    for (int row = 1; row <= StoredPlayListRows; ++row)
        records.Text(PlayList[row]);
    records.Flag(TrainingPanelOpen);
    records.Reserved();
    records.Flag(MidiInTraining);
    records.Whole(PanelBackground, 0, 2);
    records.Real(BreathingBalance, 1, 10);
    records.Reserved();
}

constexpr SettingsFile File{"app_ggz.oms",
                            &ReadTrainingSettingsText,
                            &TrainingSettingsText,
                            &SetDefaultTrainingSettings,
                            TextTrainingSettingsLoadFailed,
                            "_4 ",
                            "app.oms"};

} // namespace

FileOutcome ReadTrainingSettingsText(std::string_view text) {
    return ReadOms(text, TrainingSettingsLines<OmsReader>);
}

std::string TrainingSettingsText() {
    OmsWriter writer;
    TrainingSettingsLines(writer);
    return writer.Out;
}

void LoadTrainingSettings() {
    LoadSettingsFile(File);
}

void SaveTrainingSettings() {
    SaveSettingsFile(File);
}

void SetDefaultTrainingSettings() {
    BreathingRate = 7.5;
    BreathingBalance = 1;
    DynamicIndexInterval = 16;
    AutoStartBreathing = AutoPlayMusic = Off;
}

} // namespace pulselark
