#include "session/Monitor.h"

namespace pulselark {

void CloseMonitor() {}

} // namespace pulselark
