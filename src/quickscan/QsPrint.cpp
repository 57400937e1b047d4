#include "quickscan/QsPrint.h"

#include "base/FlagWhile.h"
#include "platform/Platform.h"
#include "platform/Surface.h"
#include "quickscan/QsPage.h"
#include "session/LanguageTable.h"

namespace pulselark {

namespace {

constexpr double PaperPerPage = 1.1;
constexpr Integer FailureInvalidSetting = 380;

Integer ChoosePrinter() {
    const FlagWhile open(DialogOpen);
    return ThePlatform().PagePrinter.ChoosePrinter(QsPageTitle());
}

Integer PrintOnePage() {
    if (const Integer failure = ChoosePrinter(); failure != 0)
        return failure;
    PagePrinter& printer = ThePlatform().PagePrinter;
    if (const Integer failure = printer.PaintPage(QsPaperPage(printer.Paper())); failure != 0)
        return failure;
    ThePlatform().MessageLoop.Yield();
    return printer.EndDocument();
}

} // namespace

PaperPage QsPaperPage(PaperSize paper) {
    return {{paper.Width / PaperPerPage, paper.Height / PaperPerPage}, &QsDrawOnPaper};
}

std::string QsPageTitle() {
    return LanguageText(TextModuleQuickScan);
}

void QsPrint() {
    if (QuickScanResultShown == Off) {
        ThePlatform().Messages.Show(LanguageText(TextNothingToDo), ButtonOK);
        return;
    }
    const Integer failure = PrintOnePage();
    OpenQuickScanPanel();
    if (failure != 0 && failure != FailureCancelled && failure != FailureInvalidSetting)
        ThePlatform().Messages.Show(LanguageText(TextPrintFailed), ButtonOK);
}

} // namespace pulselark
