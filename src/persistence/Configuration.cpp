#include "persistence/Configuration.h"

#include "base/FlagWhile.h"
#include "feedback/Scenery.h"
#include "feedback/SendAppData.h"
#include "persistence/ConfigFile.h"
#include "persistence/ConfigFolder.h"
#include "persistence/FileMessages.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/RedrawPanels.h"

#include <optional>

namespace pulselark {

std::vector<std::string> fileList;

namespace {

constexpr const char* ConfigFileFilter = "PulseLark config. data (*.htc)|*.htc";
constexpr const char* PreviousName = "prevConfig.htc";

std::optional<std::string> AskForFile(bool toSave) {
    const FlagWhile open(DialogOpen);
    FileDialogs& dialogs = ThePlatform().FileDialogs;
    return toSave ? dialogs.ChooseFileToSave(ConfigFolder(), ConfigFileFilter)
                  : dialogs.ChooseFileToOpen(ConfigFolder(), ConfigFileFilter);
}

// Nothing for a cancelled dialog; an entry that the list does not have is a failure.
std::optional<std::string> NameToLoad(int which) {
    if (which == DefaultConfig)
        return InConfigFolder("defConfig.htc");
    if (which == PreviousConfig)
        return InConfigFolder(PreviousName);
    if (which < 0)
        return AskForFile(false);
    if (static_cast<std::size_t>(which) >= fileList.size())
        throw Failure{FailureIndexOutOfRange};
    return InConfigFolder(fileList[static_cast<std::size_t>(which)]);
}

template <class Read>
FileOutcome ReadFile(const std::string& name, Read read) {
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0)
        return {failure, 0};
    return read(bytes);
}

void FallBack(const FileOutcome& outcome, const std::string& name) {
    if (IsMissing(outcome.Number)) {
        ThePlatform().Messages.Show(LanguageText(TextConfigNotFound), ButtonOK, WarningManner);
        ShowStatus(LanguageText(TextFileFailure));
    } else {
        ShowFileFailure(LanguageText(TextConfigLoadFailed), outcome, name, LanguageText(TextBuiltInLayout));
    }
    DefaultLayout();
}

void Apply(const std::string& name) {
    for (PanelPlace& panel : picModule)
        panel.Visible = Off;
    // In training the scenery has the screen, and the layout is the one from before it.
    if (TrainingActive == Off) {
        if (const FileOutcome outcome = ReadFile(name, &ReadConfigText); outcome.Number != 0) {
            FallBack(outcome, name);
            return;
        }
        picGamePassive.Visible = picRestoreGame.Visible = false;
    } else {
        StartWideFeedback();
    }
    LayoutLoaded = TrainingActive == Off;
    PlaceBeforeEnlarging = {};
    LayoutCanvas();
    OpenAllPanels(true);
    for (std::size_t i = 0; i < picModule.size(); ++i)
        picModule[i].Visible = PanelVisible[i];
}

void BringSceneryBack() {
    if (TrainingActive != Off)
        SendAppCommand(CmdRestoreView);
}

void TellPreviewFailure() {
    ThePlatform().Messages.Show(LanguageText(TextConfigPreviewFailed), ButtonOK, WarningManner);
    ShowStatus(LanguageText(TextFileFailure));
}

} // namespace

void RefreshConfigList() {
    // After a failure the list is empty, which says all there is to say.
    static_cast<void>(ThePlatform().Files.ListFolder(ConfigFolder(), ".htc", fileList));
}

void LoadConfig(int which) {
    try {
        const std::optional<std::string> name = NameToLoad(which);
        if (!name)
            return;
        if (which == DefaultConfig)
            TrainingActive = Off;
        Apply(*name);
        BringSceneryBack();
    } catch (const Failure& failure) {
        FallBack({failure.Number, 0}, ConfigFolder());
    }
}

void SaveConfig(int which) {
    const std::optional<std::string> name =
        which == PreviousConfig ? InConfigFolder(PreviousName) : AskForFile(true);
    if (!name)
        return;
    if (const Integer failure = ThePlatform().Files.ReplaceWhole(*name, ConfigText()); failure != 0) {
        ShowFileFailure(LanguageText(TextSaveFailed) + "_5 ", {failure, 0}, *name,
                        LanguageText(TextOpenFailedSafe));
        return;
    }
    RefreshConfigList();
    BringSceneryBack();
}

void LoadConfigPreview(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= fileList.size()) {
        TellPreviewFailure();
        return;
    }
    const std::string name = InConfigFolder(fileList[static_cast<std::size_t>(index)]);
    if (ReadFile(name, [](std::string_view text) { return ReadConfigPreview(text); }).Number != 0)
        TellPreviewFailure();
}

void LoadConfigPicture(int index) {
    constexpr int Share = 8; // room for windows of 17,475 pixels
    ConfigPreview = {};
    const auto read = [](std::string_view text) { return ReadConfigPreview(text, Share); };
    const bool listed = index >= 0 && static_cast<std::size_t>(index) < fileList.size();
    if (!listed || ReadFile(InConfigFolder(fileList[static_cast<std::size_t>(index)]), read).Number != 0)
        LoadConfigPreview(index);
}

} // namespace pulselark
