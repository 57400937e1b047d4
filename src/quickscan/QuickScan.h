#pragma once

/// The quick scan of a session.
namespace pulselark {

/// No scan is on show: clears `QuickScanResultShown` and gives the scan's button its first caption.
void ResetQuickScan();

} // namespace pulselark
