#include "persistence/SaveSession.h"

#include "base/FlagWhile.h"
#include "feedback/Scenery.h"
#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "persistence/FileMessages.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionButtons.h"

#include <new>
#include <optional>

namespace pulselark {

namespace {

// A file dialog hides the scenery.
void BringSceneryBack() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(CmdRestoreView);
    RestoreScenery();
}

std::optional<std::string> AskForFile() {
    const FlagWhile open(DialogOpen);
    return ThePlatform().FileDialogs.ChooseFileToSave(LastSaveFolder, SessionFileFilter);
}

Integer WriteShown(const std::string& name) {
    const FlagWhile saving(SavingSession);
    ShowStatus(name + LanguageText(TextSaving));
    return WriteSessionFile(name);
}

} // namespace

Integer WriteSessionFile(const std::string& name) {
    try {
        return ThePlatform().Files.ReplaceWhole(name, SessionText());
    } catch (const std::bad_alloc&) {
        return FailureOutOfMemory;
    }
}

void SaveSessionFromMenu() {
    if (TrainingActive != Off && SessionUnsaved != Off)
        PrepareForFileDialog();
    SaveSession();
}

void SaveSession() {
    const Platform& platform = ThePlatform();
    if (SessionUnsaved == Off) {
        platform.Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const auto chosen = AskForFile();
    if (!chosen) {
        LastFileResult = FailureCancelled;
        BringSceneryBack();
        return;
    }
    const std::string& name = *chosen;
    LastSaveFolder = name;
    RefreshSessionButtons(false);
    const std::string lockBefore = SessionInfo[20];
    SessionInfo[20] = "1"; // a saved document is locked
    const Integer failure = WriteShown(name);
    BringSceneryBack();
    if (failure != 0) {
        SessionInfo[20] = lockBefore;
        LastFileResult = failure;
        ShowFileFailure(LanguageText(TextSaveFailed) + "_1 ", {failure, 0}, name,
                        LanguageText(TextSaveFailedSafe));
        return;
    }
    SessionUnsaved = Off;
    LastFileResult = FileSuccess;
    SessionName = LastSessionFile = name;
    ShowStatus(SessionName + LanguageText(TextSaved));
}

} // namespace pulselark
