#include "persistence/SaveSession.h"

#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "persistence/FileMessages.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

// A file dialog hides the scenery.
void BringSceneryBack() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(240, 0, 0, 0, 0);
    RestoreScenery();
}

} // namespace

Integer WriteSessionFile(const std::string& name) {
    return ThePlatform().Files.ReplaceWhole(name, SessionText());
}

void SaveSession() {
    const Platform& platform = ThePlatform();
    if (SessionUnsaved == Off) {
        platform.Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    DialogOpen = On;
    const auto chosen = platform.FileDialogs.ChooseFileToSave(LastSaveFolder, SessionFileFilter);
    DialogOpen = Off;
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
    SavingSession = On;
    ShowStatus(name + LanguageText(TextSaving));
    const Integer failure = WriteSessionFile(name);
    SavingSession = Off;
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
