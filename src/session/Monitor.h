#pragma once

namespace pulselark {

/// Closes the ECG monitor. There is no monitor yet, so nothing is open.
void CloseMonitor();

} // namespace pulselark
