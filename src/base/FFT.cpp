#include "base/FFT.h"

#include <fftw3.h>

#include <array>

namespace pulselark {

namespace {

// One plan for each of the three lengths, kept for the whole run: a plan belongs to the process and is
// released with it.
struct PlanForLength {
    Long Length;
    fftwf_plan Plan;
};
std::array<PlanForLength, 3> plans{{{1024, nullptr}, {512, nullptr}, {256, nullptr}}};

fftwf_plan PlanFor(Long length, float* in, float* realOut, float* imagOut) {
    for (PlanForLength& entry : plans) {
        if (entry.Length != length)
            continue;
        if (entry.Plan == nullptr) {
            const fftwf_iodim dimension{static_cast<int>(length), 1, 1};
            // FFTW_ESTIMATE does not touch the arrays while planning.
            entry.Plan = fftwf_plan_guru_split_dft_r2c(1, &dimension, 0, nullptr, in, realOut, imagOut,
                                                       FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
        }
        return entry.Plan;
    }
    return nullptr;
}

} // namespace

void fft_float(Long NumSamples, Integer InverseTransform, float* RealIn, const float* /*ImagIn*/,
               float* RealOut, float* ImagOut) {
    fftwf_plan plan = InverseTransform == 0 ? PlanFor(NumSamples, RealIn, RealOut, ImagOut) : nullptr;
    if (plan == nullptr)
        throw Failure{FailureIndexOutOfRange};
    fftwf_execute_split_dft_r2c(plan, RealIn, RealOut, ImagOut);
}

} // namespace pulselark
