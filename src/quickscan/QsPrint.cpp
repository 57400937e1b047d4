#include "quickscan/QsPrint.h"

#include "platform/Platform.h"
#include "quickscan/QsPage.h"
#include "session/LanguageTable.h"

namespace pulselark {

PagePrinting PrintOnePage = nullptr;

void QsPrint() {
    if (QuickScanResultShown == Off) {
        ThePlatform().Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const Integer failure = PrintOnePage != nullptr ? PrintOnePage(&QsDrawOnPaper) : Integer{FailureDeviceIO};
    OpenQuickScanPanel();
    if (failure != 0 && failure != FailureCancelled)
        ThePlatform().Messages.Show(LanguageText(TextPrintFailed), ButtonOK);
}

} // namespace pulselark
