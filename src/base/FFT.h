#pragma once

#include "base/Numbers.h"

namespace pulselark {

/// Forward discrete Fourier transform of real data, not scaled: X[k] = sum of x[n] exp(-2 pi i k n / N).
///
/// In: `NumSamples` = 128, 256, 512, 1024, 2048 or 4096; `InverseTransform` 0; `RealIn`, NumSamples values,
/// left as they are; `ImagIn`, all zero (the analyses transform real series only, so it is not read). Out:
/// `RealOut`, `ImagOut`, the values 0 to NumSamples / 2; the upper half is the mirror image of the lower one
/// and is not written. `RealIn` is aligned to 16 bytes, as `Series` is. Failures: any other length, or an
/// inverse transform, is failure 9. Source: FFTW 3, real to complex, planned once per length with
/// FFTW_ESTIMATE, so that every start gives the same digits. Relative RMS error against a 64-bit transform:
/// about 1e-7. Not for use from two threads at once before the first call for a length has returned.
void fft_float(Long NumSamples, Integer InverseTransform, float* RealIn, const float* ImagIn, float* RealOut,
               float* ImagOut);

/// Plans the lengths that the analyses of a second use (1024, 512, 256), which takes a few milliseconds once,
/// so that no second of a recording has to wait for it.
void PlanTransforms();

} // namespace pulselark
