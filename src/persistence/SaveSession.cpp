#include "persistence/SaveSession.h"

#include "feedback/Scenery.h"
#include "persistence/SaveSteps.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ReportDocument.h"
#include "session/SessionButtons.h"

namespace pulselark {

Integer WriteSessionFile(const std::string& name) {
    return WriteTextShown(name, &SessionText);
}

void SaveSessionFromMenu() {
    if (TrainingActive != Off && SessionUnsaved != Off)
        PrepareForFileDialog();
    SaveSession();
}

void SaveSession() {
    if (SessionUnsaved == Off) {
        ThePlatform().Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const auto chosen = AskForFileToSave(SessionFileFilter);
    if (!chosen)
        return;
    const std::string& name = *chosen;
    LastSaveFolder = name;
    RefreshSessionButtons(false);
    CollectReportFields();
    const std::string lockBefore = SessionInfo[20];
    SessionInfo[20] = '1'; // a saved document is locked
    if (!EndSave(WriteSessionFile(name), name)) {
        SessionInfo[20] = lockBefore;
        return;
    }
    SessionUnsaved = Off;
    if (SessionRunning == Off)
        DiscardJournal();
    SessionName = LastSessionFile = name;
    LockSavedReport();
}

} // namespace pulselark
