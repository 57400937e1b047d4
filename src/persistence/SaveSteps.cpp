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

namespace {

// A file dialog has hidden the scenery of a training.
void BringSceneryBack() {
    if (TrainingActive == Off)
        return;
    SendAppCommand(CmdRestoreView);
    RestoreScenery();
}

} // namespace

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

Integer WriteShown(const std::string& name, const std::function<Integer(std::string&)>& make) {
    const FlagWhile saving(SavingSession);
    ShowStatus(name + LanguageText(TextSaving));
    try {
        std::string content;
        const Integer failure = make(content);
        return failure != 0 ? failure : ThePlatform().Files.ReplaceWhole(name, content);
    } catch (const std::bad_alloc&) {
        return FailureOutOfMemory;
    }
}

Integer WriteTextShown(const std::string& name, const std::function<std::string()>& text) {
    return WriteShown(name, [&text](std::string& content) {
        content = text();
        return Integer(0);
    });
}

bool EndSave(Integer failure, const std::string& name) {
    BringSceneryBack();
    LastFileResult = failure == 0 ? FileSuccess : failure;
    if (failure == 0)
        ShowStatus(name + LanguageText(TextSaved));
    else
        ShowFileFailure(LanguageText(TextSaveFailed) + "_1 ", {failure, 0}, name,
                        LanguageText(TextSaveFailedSafe));
    return failure == 0;
}

} // namespace pulselark
