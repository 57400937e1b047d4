#pragma once

/// The spectrum panels `picSA` and `picSB`: the newest spectra as a waterfall. Nothing is drawn yet.
namespace pulselark {

void DrawSpectrumA();
void DrawSpectrumB();

} // namespace pulselark
