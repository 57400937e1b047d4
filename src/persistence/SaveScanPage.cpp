#include "persistence/SaveScanPage.h"

#include "persistence/SaveSteps.h"
#include "platform/Platform.h"
#include "quickscan/QsPrint.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

Integer MakePage(std::string& bytes) {
    return ThePlatform().PagePrinter.MakePdf(QsPageTitle(), &QsPaperPage, bytes);
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
    EndSave(WriteShown(*chosen, &MakePage), *chosen);
}

} // namespace pulselark
