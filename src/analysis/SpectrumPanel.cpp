#include "analysis/SpectrumPanel.h"

namespace pulselark {

void DrawSpectrumA() {}
void DrawSpectrumB() {}

} // namespace pulselark
