#pragma once

#include "RatioTable.h"

namespace pulselark {

class BenchSession;

/// Registers every figure and every floor as a benchmark on `session`, which must outlive the run.
void RegisterFigures(const BenchSession& session);

/// Which of them belong together.
std::vector<RatioRow> FigureRows();

} // namespace pulselark
