#include "analysis/BeatDetector.h"

#include "BeatScore.h"
#include "analysis/Resampler.h"
#include "persistence/WfdbRecord.h"
#include "platform/system/SystemFiles.h"
#include "support/BeatSignal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace pulselark {
namespace {

struct Detection {
    std::vector<double> Times;
    double WorstDelay = 0;
};

Detection Detect(const std::vector<float>& samples) {
    BeatDetector detector;
    Detection detection;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (const auto beat = detector.Push(samples[i])) {
            detection.Times.push_back(beat->Time);
            if (!beat->Doubtful && beat->Time > 3)
                detection.WorstDelay =
                    std::max(detection.WorstDelay, static_cast<double>(i) / 128 - beat->Time);
        }
    while (const auto beat = detector.Flush())
        detection.Times.push_back(beat->Time);
    return detection;
}

// Each of `expected` is found within 3 ms, and nothing else is.
void ExpectBeats(const std::vector<float>& samples, const std::vector<double>& expected) {
    const auto found = Detect(samples).Times;
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], 0.003);
}

auto AtSecond(std::vector<float>& samples, std::ptrdiff_t second) {
    return samples.begin() + second * 128;
}

TEST(BeatDetectorTest, BeatsOfEitherPolarityOnAWanderingBaseline) {
    const auto beats = SteadyBeats(0.7, 0.8137, 60);
    for (const double height : {500.0, -500.0, 60.0}) {
        auto samples = SignalWithBeats(beats, 60.5, height);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] += static_cast<float>(2000 + height * std::sin(static_cast<double>(i) / 300));
        ExpectBeats(samples, beats);
    }
}

TEST(BeatDetectorTest, APWaveThatIsAlmostAsHighAsItsBeatIsNone) {
    const auto beats = SteadyBeats(0.7, 0.8137, 60);
    for (const double width : {0.02, 0.024}) {
        auto samples = SignalWithBeats(beats, 60.5);
        for (std::size_t i = 0; i < samples.size(); ++i)
            for (const double beat : beats) {
                const double t = static_cast<double>(i) / 128 - (beat - 0.21);
                samples[i] += static_cast<float>(350 * std::exp(-t * t / (2 * width * width)));
            }
        ExpectBeats(samples, beats);
    }
}

TEST(BeatDetectorTest, ABeatIsGivenOutWithinTheLookAhead) {
    const auto detection = Detect(SignalWithBeats(SteadyBeats(0.7, 0.8137, 60), 60.5));
    EXPECT_LE(detection.WorstDelay, BeatDetector::LookAhead);
    EXPECT_GT(detection.WorstDelay, 0.2);
    EXPECT_LE(BeatDetector::LookAhead, 0.3);
}

TEST(BeatDetectorTest, AfterAGapTheBeatsGoOnInTheirPlaces) {
    auto beats = SteadyBeats(0.5, 0.9, 60);
    for (const float filler : {std::numeric_limits<float>::quiet_NaN(), 0.0F}) {
        auto samples = SignalWithBeats(beats, 60.5);
        for (float& sample : samples)
            sample += 1500;
        std::fill(AtSecond(samples, 30), AtSecond(samples, 35), filler);
        auto expected = beats;
        std::erase_if(expected, [](double t) { return t > 29.9 && t < 35.1; });
        ExpectBeats(samples, expected);
    }
}

TEST(BeatDetectorTest, AfterAJumpOfTheAmplitudeTheBeatsAreFoundAgain) {
    const auto beats = SteadyBeats(0.5, 0.9, 60);
    for (const float factor : {0.1F, 8.0F}) {
        auto samples = SignalWithBeats(beats, 60.5);
        std::transform(AtSecond(samples, 20), samples.end(), AtSecond(samples, 20),
                       [factor](float sample) { return sample * factor; });
        const auto found = Detect(samples).Times;
        const auto after = [](const std::vector<double>& times) {
            return std::count_if(times.begin(), times.end(), [](double t) { return t > 32; });
        };
        EXPECT_EQ(after(found), after(beats)) << factor;
    }
}

TEST(BeatDetectorTest, NothingIsFoundWhereNothingIs) {
    EXPECT_TRUE(Detect(std::vector<float>(1280, 700)).Times.empty());
    EXPECT_TRUE(Detect(std::vector<float>(1280, std::numeric_limits<float>::quiet_NaN())).Times.empty());
    EXPECT_TRUE(Detect({}).Times.empty());
    EXPECT_LE(Detect({100, -100, 100}).Times.size(), 1U);
}

TEST(BeatDetectorTest, RealRecordsAgainstTheirExperts) {
    const char* data = std::getenv("PULSELARK_DATA");
    if (data == nullptr)
        GTEST_SKIP() << "PULSELARK_DATA is not set";
    const auto read = [&](const std::string& name) {
        std::string bytes;
        EXPECT_EQ(SystemFiles().ReadWhole(std::string(data) + name, bytes), 0) << name;
        return bytes;
    };
    for (const std::string record : {"/mitdb/119", "/mitdb/208", "/nstdb/118e12"}) {
        WfdbHeader header;
        ASSERT_EQ(ReadWfdbHeader(read(record + ".hea"), header).Number, 0);
        std::vector<float> recorded, samples;
        ASSERT_EQ(ReadWfdbSamples(header, 0, read(record + ".dat"), recorded), 0);
        ASSERT_EQ(recorded.size(), 650000U);
        Resampler resampler(header.Rate);
        for (const float sample : recorded)
            resampler.Push(sample, samples);
        const auto detection = Detect(samples);
        const auto score = ScoreBeats(ReadWfdbMarks(read(record + ".atr"), header.Rate), detection.Times);
        EXPECT_GT(score.Wide.F1(), 0.985) << record;
        EXPECT_GT(score.Narrow.F1(), 0.98) << record;
        EXPECT_LE(detection.WorstDelay, BeatDetector::LookAhead) << record;
    }
}

} // namespace
} // namespace pulselark
