#include "persistence/SaveScanPage.h"

#include "base/FlagWhile.h"
#include "persistence/SaveSteps.h"
#include "platform/Platform.h"
#include "quickscan/QsPrint.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

Integer WritePage(const std::string& name) {
    const FlagWhile saving(SavingSession);
    ShowStatus(name + LanguageText(TextSaving));
    const Platform& platform = ThePlatform();
    std::string bytes;
    const Integer failure = platform.PagePrinter.MakePdf(QsPageTitle(), &QsPaperPage, bytes);
    return failure != 0 ? failure : platform.Files.ReplaceWhole(name, bytes);
}

} // namespace

void SaveScanPage() {
    if (QuickScanResultShown == Off) {
        ThePlatform().Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const auto chosen = AskForFileToSave(PageFileFilter);
    if (!chosen)
        return;
    LastSaveFolder = *chosen;
    const Integer failure = WritePage(*chosen);
    BringSceneryBack();
    if (failure != 0) {
        TellSaveFailure(failure, *chosen);
        return;
    }
    LastFileResult = FileSuccess;
    ShowStatus(*chosen + LanguageText(TextSaved));
}

} // namespace pulselark
