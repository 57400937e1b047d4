#pragma once

#include "base/Numbers.h"

/// A made-up ECG of a heart that follows paced breathing. Two leads of one heart, clean, with the respiratory
/// sinus arrhythmia that slow breathing brings out. Nothing of it comes from a person.
///
/// Each beat is a sum of Gaussians for the waves P, Q, R, S and T: McSharry, Clifford, Tarassenko and Smith,
/// A dynamical model for generating synthetic electrocardiogram signals, IEEE Trans. Biomed. Eng.
/// 50(3):289-294 (2003). Here the waves lie at times and not at phase angles, and the T wave moves with the
/// QT interval: Bazett, An analysis of the time-relations of electrocardiograms, Heart 7:353-370 (1920).
namespace pulselark {

/// Fills the first `seconds` seconds (1 to 3601) of `EcgA`, `EcgB` (panel units, 500 per millivolt, two
/// decimals), `IbiA` and `IbiB` (mean interval of the beats that end in a second, four decimals; a second
/// without a beat repeats the value before it) and sets `SessionSeconds`, `ChannelMode` 1 and
/// `ChannelBPresent`. Every call and every machine gives the same values.
void FillWithSyntheticEcg(Long seconds);

} // namespace pulselark
