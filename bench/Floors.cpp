#include "Floors.h"

#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <fftw3.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <sys/stat.h>
#include <unistd.h>

namespace pulselark {

namespace {

/// A real transform into pairs, planned once.
template <int N>
struct BareTransform {
    alignas(64) float In[N];
    alignas(64) fftwf_complex Out[N / 2 + 1];
    fftwf_plan Plan = fftwf_plan_dft_r2c_1d(N, In, Out, FFTW_ESTIMATE);
};

BareTransform<SpectrumFftLength>& OfSamples() {
    static BareTransform<SpectrumFftLength> transform;
    return transform;
}
BareTransform<CoherenceFftLength>& OfSpectrum() {
    static BareTransform<CoherenceFftLength> transform;
    return transform;
}
BareTransform<HrvFftLength>& OfIntervals() {
    static BareTransform<HrvFftLength> transform;
    return transform;
}

void Magnitudes(const fftwf_complex* pairs, float* magnitudes, int count) {
    for (int i = 0; i < count; ++i) {
        const double re = pairs[i][0];
        const double im = pairs[i][1];
        magnitudes[i] = static_cast<float>(std::sqrt(re * re + im * im));
    }
}

alignas(64) float curve[CoherenceCurvePoints];
alignas(64) float power[HrvBins];

constexpr std::size_t MostValues = 2 * (SecondsBufferSize + EcgBufferSize);
float values[MostValues];

constexpr int HeadingLines = 33;

} // namespace

void BareTransforms(Long second) {
    auto& samples = OfSamples();
    auto& spectrum = OfSpectrum();
    for (const EcgBuffer* ecg : {&EcgA, &EcgB}) {
        std::memcpy(samples.In, ecg->data() + (second - 8) * SamplesPerSecond, sizeof samples.In);
        fftwf_execute(samples.Plan);
        Magnitudes(samples.Out, spectrum.In, SpectrumBins);
        fftwf_execute(spectrum.Plan);
        Magnitudes(spectrum.Out, curve, CoherenceCurvePoints);
    }
}

void BareRescan() {
    for (Long second = 1; second <= SessionSeconds; ++second)
        BareTransforms(second < 8 ? 8 : second);
}

void BareHrv(Long second) {
    auto& intervals = OfIntervals();
    for (const SecondsBuffer* ibi : {&IbiA, &IbiB}) {
        std::memcpy(intervals.In, ibi->data() + second - HrvFftLength, sizeof intervals.In);
        fftwf_execute(intervals.Plan);
        for (int i = 0; i < HrvBins; ++i) {
            const double re = intervals.Out[i][0];
            const double im = intervals.Out[i][1];
            power[i] = static_cast<float>(re * re + im * im);
        }
    }
}

std::size_t BareRead(const std::string& fileName) {
    const int file = ::open(fileName.c_str(), O_RDONLY);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0)
        return 0;
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> bytes(new char[size]);
    const bool whole = ::read(file, bytes.get(), size) == status.st_size;
    ::close(file);
    if (!whole)
        return 0;
    const char* line = bytes.get();
    const char* const end = line + size;
    std::size_t count = 0;
    for (int number = 1; line < end && count < MostValues; ++number) {
        const auto* lineEnd =
            static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        if (lineEnd == nullptr)
            lineEnd = end;
        if (number > HeadingLines)
            std::from_chars(line, lineEnd, values[count++]);
        line = lineEnd + 1;
    }
    return count;
}

const float* BareReadValues() {
    return values;
}

BareText BareWrite() {
    constexpr std::size_t LongestLine = 18; // "-1.17549435e-38" and the line's end
    const auto seconds = static_cast<std::size_t>(SessionSeconds);
    const std::size_t samples = seconds * SamplesPerSecond;
    const std::size_t room = 2 * (seconds + samples) * LongestLine;
    std::unique_ptr<char[]> bytes(new char[room]);
    char* end = bytes.get();
    const std::span<const float> series[] = {
        {IbiA.data(), seconds}, {IbiB.data(), seconds}, {EcgA.data(), samples}, {EcgB.data(), samples}};
    for (const auto& row : series) {
        for (const float value : row) {
            end = std::to_chars(end, bytes.get() + room, value).ptr;
            *end++ = '\r';
            *end++ = '\n';
        }
    }
    const auto size = static_cast<std::size_t>(end - bytes.get());
    return {std::move(bytes), size};
}

} // namespace pulselark
