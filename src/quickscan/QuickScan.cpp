#include "quickscan/QuickScan.h"

#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

namespace pulselark {

void ResetQuickScan() {
    QuickScanResultShown = Off;
    labQSMenu[0].Caption = LanguageText(TextQuickScan);
}

} // namespace pulselark
