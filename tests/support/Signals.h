#pragma once

#include "session/MainBuffers.h"

/// Synthetic signals with known answers.
namespace pulselark {

/// amplitude * sin(2 pi hz t) over the whole buffer; sample 1 lies at t = 1 / 128 s.
void FillSine(EcgBuffer& ecg, double hz, double amplitude);

/// A train of narrow beats of 600 units, one every `period` seconds, on a little noise that the seed decides.
void FillBeats(EcgBuffer& ecg, double period, unsigned seed);

/// A session of `seconds` in the buffers: beats of 0.75 s on A and 0.8 s on B, breathing in both interval
/// series at 0.1 Hz. Everything before is cleared; the session counts as saved.
void MakeSession(Long seconds, unsigned seed = 1);

} // namespace pulselark
