#pragma once

/// The panels of the heart rate variability, `picHRVA` and `picHRVB`, and their bars of the two band powers.
/// Nothing is drawn yet.
namespace pulselark {

void DrawHrvA();
void DrawHrvB();
void DrawHrvBarsA();
void DrawHrvBarsB();

} // namespace pulselark
