#pragma once

#include "RatioTable.h"

namespace pulselark {

/// Registers the share of a second that goes into the chord, and its floor: the same words into the bare
/// synthesizer. Nothing is registered on a machine without a sound font.
void RegisterSound();

/// The row of the two; none if they were not registered.
std::vector<RatioRow> SoundRows();

} // namespace pulselark
