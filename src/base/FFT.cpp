#include "base/FFT.h"

#include <fftw3.h>

#include <array>

namespace pulselark {

namespace {

// One plan for each length, kept for the whole run: a plan belongs to the process and is
// released with it.
struct PlanForLength {
    Long Length;
    fftwf_plan Plan;
};
constexpr Long LongestTransform = 4096;
std::array<PlanForLength, 6> plans{{{1024, nullptr},
                                    {512, nullptr},
                                    {256, nullptr},
                                    {LongestTransform, nullptr},
                                    {2048, nullptr},
                                    {128, nullptr}}};

fftwf_plan PlanFor(Long length, float* in, fftwf_complex* pairs) {
    for (PlanForLength& entry : plans) {
        if (entry.Length != length)
            continue;
        if (entry.Plan == nullptr) {
            // FFTW_ESTIMATE does not touch the arrays while planning.
            entry.Plan = fftwf_plan_dft_r2c_1d(static_cast<int>(length), in, pairs,
                                               FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
        }
        return entry.Plan;
    }
    return nullptr;
}

} // namespace

void fft_float(Long NumSamples, Integer InverseTransform, float* RealIn, const float* /*ImagIn*/,
               float* RealOut, float* ImagOut) {
    // FFTW is at its fastest with pairs; its own plan for two separate arrays takes twice the time.
    alignas(64) fftwf_complex pairs[LongestTransform / 2 + 1];
    fftwf_plan plan = InverseTransform == 0 ? PlanFor(NumSamples, RealIn, pairs) : nullptr;
    if (plan == nullptr)
        throw Failure{FailureIndexOutOfRange};
    fftwf_execute_dft_r2c(plan, RealIn, pairs);
    for (Long k = 0; k <= NumSamples / 2; ++k) {
        RealOut[k] = pairs[k][0];
        ImagOut[k] = pairs[k][1];
    }
}

void PlanTransforms() {
    alignas(64) float samples[1024] = {};
    alignas(64) fftwf_complex pairs[513];
    for (const Long length : {1024, 512, 256})
        PlanFor(length, samples, pairs);
}

} // namespace pulselark
