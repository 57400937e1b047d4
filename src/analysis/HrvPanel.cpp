#include "analysis/HrvPanel.h"

namespace pulselark {

void DrawHrvA() {}
void DrawHrvB() {}
void DrawHrvBarsA() {}
void DrawHrvBarsB() {}

} // namespace pulselark
