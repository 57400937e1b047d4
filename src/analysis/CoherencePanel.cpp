#include "analysis/CoherencePanel.h"

namespace pulselark {

void DrawCoherenceA() {}
void DrawCoherenceB() {}

} // namespace pulselark
