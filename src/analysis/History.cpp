#include "analysis/History.h"

namespace pulselark {

void DrawHistoryA() {}
void DrawHistoryB() {}

} // namespace pulselark
