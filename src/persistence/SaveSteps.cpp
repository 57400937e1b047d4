#include "persistence/SaveSteps.h"

#include "base/FlagWhile.h"
#include "feedback/SendAppData.h"
#include "feedback/ggz.h"
#include "persistence/FileMessages.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <new>

namespace pulselark {

std::optional<std::string> AskForFileToSave(const char* filter) {
    std::optional<std::string> chosen;
    {
        const FlagWhile open(DialogOpen);
        chosen = ThePlatform().FileDialogs.ChooseFileToSave(LastSaveFolder, filter);
    }
    if (!chosen) {
        LastFileResult = FailureCancelled;
        BringSceneryBack();
    }
    return chosen;
}

Integer WriteShown(const std::string& name, const std::function<std::string()>& text) {
    const FlagWhile saving(SavingSession);
    ShowStatus(name + LanguageText(TextSaving));
    try {
        return ThePlatform().Files.ReplaceWhole(name, text());
    } catch (const std::bad_alloc&) {
        return FailureOutOfMemory;
    }
}

void TellSaveFailure(Integer failure, const std::string& name) {
    LastFileResult = failure;
    ShowFileFailure(LanguageText(TextSaveFailed) + "_1 ", {failure, 0}, name,
                    LanguageText(TextSaveFailedSafe));
}

void BringSceneryBack() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(CmdRestoreView);
    RestoreScenery();
}

} // namespace pulselark
