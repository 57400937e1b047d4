#pragma once
#include "session/MainBuffers.h"
namespace pulselark {
void BinCoherence(const SecondsBuffer& series, Integer& interval, Long upTo);
Integer ScoreCoherenceBins();
} // namespace pulselark
