#include "analysis/IntervalSeries.h"

#include "analysis/SignalQuality.h"
#include "support/BeatSignal.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace pulselark {
namespace {

Beat BeatAt(double time, bool foreign = false) {
    Beat beat;
    beat.Time = time;
    for (int k = 0; k < Beat::ShapeSize; ++k) {
        const double t = (k - Beat::ShapePeak) / 128.0;
        const double width = foreign ? 0.05 : 0.012;
        beat.Shape[static_cast<std::size_t>(k)] =
            static_cast<float>((foreign ? -700 : 500) * std::exp(-t * t / (2 * width * width)));
    }
    return beat;
}

std::string Kinds(IntervalSeries& series, std::vector<BeatInterval>& intervals) {
    std::string kinds;
    series.Finish();
    while (const auto interval = series.Next()) {
        intervals.push_back(*interval);
        kinds.push_back(static_cast<char>(interval->Kind));
    }
    return kinds;
}

TEST(IntervalSeriesTest, AnEctopicBeatBendsNothing) {
    IntervalSeries series;
    for (int i = 0; i < 20; ++i)
        series.Add(i == 12 ? BeatAt(0.5 + 0.8 * i - 0.3, true) : BeatAt(0.5 + 0.8 * i));
    std::vector<BeatInterval> intervals;
    EXPECT_EQ(Kinds(series, intervals), "NNNNNNNNNNNNENNNNNNN");
    EXPECT_NEAR(intervals[12].Raw, 0.5, 1e-5);
    EXPECT_NEAR(intervals[13].Raw, 1.1, 1e-5);
    for (std::size_t i = 1; i < intervals.size(); ++i)
        EXPECT_NEAR(intervals[i].Corrected, 0.8, 1e-5);
    for (int second = 2; second <= 18; ++second)
        EXPECT_NEAR(series.MeanInterval(second), 0.8, 1e-5);
}

TEST(IntervalSeriesTest, AnIntervalOverLostSamplesBendsNothing) {
    for (const double gap : {2.0, 1.15, 5.3}) {
        IntervalSeries series;
        for (int i = 0; i < 20; ++i) {
            Beat beat = BeatAt(0.5 + 0.8 * i + (i >= 12 ? gap - 0.8 : 0));
            beat.AfterGap = i == 12 || i == 16; // at 16 nothing was lost but a few samples between the beats
            series.Add(beat);
            for (int second = 2; second <= beat.Time; ++second)
                ASSERT_NEAR(series.MeanInterval(second), 0.8, 1e-5) << gap << " " << i << " " << second;
        }
        std::vector<BeatInterval> intervals;
        EXPECT_EQ(Kinds(series, intervals), "NNNNNNNNNNNNXNNNNNNN") << gap;
        EXPECT_NEAR(intervals[13].Corrected, 0.8, 1e-5);
    }
}

TEST(IntervalSeriesTest, InARhythmOfCoupletsTheNormalBeatStaysTheNormalOne) {
    IntervalSeries series;
    std::string expected;
    double time = 0.5;
    for (int i = 0; i < 40; ++i) {
        series.Add(BeatAt(time));
        expected += 'N';
        if (i >= 8) {
            series.Add(BeatAt(time + 0.5, true));
            series.Add(BeatAt(time + 1, true));
            expected += "EE";
        }
        time += i >= 8 ? 1.8 : 0.9;
    }
    std::vector<BeatInterval> intervals;
    EXPECT_EQ(Kinds(series, intervals), expected);
}

TEST(IntervalSeriesTest, MissedBeatsAreInferred) {
    IntervalSeries series;
    for (int i = 0; i < 20; ++i)
        if (i != 9 && i != 14 && i != 15)
            series.Add(BeatAt(0.5 + 0.8 * i));
    std::vector<BeatInterval> intervals;
    EXPECT_EQ(Kinds(series, intervals), "NNNNNNNNNMNNNNMMNNNN");
    EXPECT_NEAR(intervals[9].Time, 0.5 + 0.8 * 9, 1e-5);
    EXPECT_EQ(intervals[9].Raw, 0);
    EXPECT_NEAR(intervals[10].Raw, 1.6, 1e-5);
    EXPECT_NEAR(intervals[10].Corrected, 0.8, 1e-5);
}

TEST(IntervalSeriesTest, BreathingIsNotEctopic) {
    for (const double depth : {0.17, 0.26}) { // 59 to 88 beats a minute in 5 s, and 54 to 102
        IntervalSeries series;
        double time = 0.5;
        for (int i = 0; i < 200; ++i) {
            series.Add(BeatAt(time));
            time += 0.85 + depth * std::sin(2 * 3.14159265 * time / 10);
        }
        std::vector<BeatInterval> intervals;
        EXPECT_EQ(Kinds(series, intervals), std::string(200, 'N')) << depth;
    }
}

TEST(IntervalSeriesTest, ASecondHasTheMeanOfItsIntervalsOrTheLastOne) {
    IntervalSeries series;
    EXPECT_EQ(series.MeanInterval(5), 1);
    for (const double time : {0.4, 0.9, 1.5, 2.3, 4.2, 4.8, 5.4, 6.0})
        series.Add(BeatAt(time));
    series.Finish();
    EXPECT_NEAR(series.MeanInterval(1), 0.5, 1e-5);
    EXPECT_NEAR(series.MeanInterval(2), 0.6, 1e-5);
    EXPECT_NEAR(series.MeanInterval(3), 0.8, 1e-5);
    EXPECT_NEAR(series.MeanInterval(4), 0.8, 1e-5);
    EXPECT_NEAR(series.MeanInterval(6), 0.6, 1e-5);
    EXPECT_NEAR(series.MeanInterval(100), 0.6, 1e-5);
}

TEST(IntervalSeriesTest, ALiveTickSeesTheSecondThatJustEnded) {
    IntervalSeries series;
    for (const double time : SteadyBeats(0.3, 1.0, 10))
        series.Add(BeatAt(time));
    series.Add(BeatAt(10.1)); // not final before the next
    EXPECT_NEAR(series.MeanInterval(11), 0.8, 1e-5);
}

TEST(IntervalSeriesTest, IntervalsCountFromTheSecondBeatOn) {
    IntervalSeries series;
    series.Add(BeatAt(0.5));
    EXPECT_EQ(series.MeanInterval(1), 1);
    series.Add(BeatAt(1.3));
    series.Add(BeatAt(2.2));
    EXPECT_NEAR(series.MeanInterval(2), 0.8, 1e-5);
    EXPECT_NEAR(series.MeanInterval(3), 0.9, 1e-5);
    EXPECT_NEAR(series.MeanInterval(4), 0.9, 1e-5); // no beat in it
    EXPECT_FALSE(series.Next());
}

TEST(IntervalSeriesTest, AnIrregularRhythmOfNormalShapeIsNormal) {
    IntervalSeries series;
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> interval(0.4, 1.1);
    double time = 0.5;
    for (int i = 0; i < 300; ++i) {
        series.Add(BeatAt(time, i % 25 == 24));
        time += interval(generator);
    }
    std::vector<BeatInterval> intervals;
    const std::string kinds = Kinds(series, intervals);
    ASSERT_EQ(kinds.size(), 300U); // nothing inferred
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(kinds[i], i % 25 == 24 ? 'E' : 'N') << i;
}

TEST(IntervalSeriesTest, AnEctopicShapeIsKnownAgainWhenInStep) {
    const auto add = [](IntervalSeries& series, int beat, double time) {
        Beat mixed = BeatAt(time);
        for (int k = 0; k < Beat::ShapeSize; ++k) // as wide as an ectopic one, yet alike by 0.7 to 0.8
            mixed.Shape[static_cast<std::size_t>(k)] -=
                0.4F * BeatAt(time, true).Shape[static_cast<std::size_t>(k)];
        series.Add(beat % 8 == 7 ? mixed : BeatAt(time));
    };
    IntervalSeries series;
    for (int i = 0; i < 64; ++i)
        add(series, i, 0.5 + 0.8 * i - (i % 8 == 7 && i < 40 ? 0.25 : 0));
    std::vector<BeatInterval> intervals;
    const std::string kinds = Kinds(series, intervals);
    for (std::size_t i = 7; i < kinds.size(); i += 8)
        EXPECT_EQ(kinds[i], 'E') << i;
}

TEST(IntervalSeriesTest, AMarkOnAnotherWaveOfTheQrsBendsNoInterval) {
    IntervalSeries series;
    for (int i = 0; i < 20; ++i) {
        Beat beat = BeatAt(0.5 + 0.75 * i);
        if (i % 5 == 4) { // marked four samples late
            beat.Time += 4.0 / 128;
            std::copy(beat.Shape.begin() + 4, beat.Shape.end(), beat.Shape.begin());
            std::fill(beat.Shape.end() - 4, beat.Shape.end(), beat.Shape[Beat::ShapeSize - 5]);
        }
        series.Add(beat);
    }
    std::vector<BeatInterval> intervals;
    EXPECT_EQ(Kinds(series, intervals), std::string(20, 'N'));
    for (std::size_t i = 1; i < intervals.size(); ++i)
        EXPECT_NEAR(intervals[i].Corrected, 0.75, 0.003) << i;
    EXPECT_NEAR(intervals[4].Raw, 0.78125, 1e-5);
}

SignalQuality::Step LightOf(const std::vector<float>& second) {
    SignalQuality quality;
    for (const float sample : second)
        quality.Push(sample);
    return quality.Light();
}

TEST(SignalQualityTest, EachFaultDimsTheLight) {
    using Step = SignalQuality::Step;
    const auto clean = SignalWithBeats({0.5}, 1);
    EXPECT_EQ(LightOf(clean), Step::Good);
    EXPECT_EQ(LightOf(std::vector<float>(128, 300)), Step::Bad);
    auto lost = clean;
    std::fill(lost.begin(), lost.begin() + 30, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(LightOf(lost), Step::Doubtful);
    std::fill(lost.begin(), lost.begin() + 70, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(LightOf(lost), Step::Bad);
    auto clipped = clean;
    for (std::size_t i = 20; i < 60; ++i)
        clipped[i] = 1000;
    EXPECT_EQ(LightOf(clipped), Step::Bad);
    std::mt19937 generator(7);
    std::normal_distribution<float> noise;
    auto noisy = clean;
    for (float& sample : noisy)
        sample += 150 * noise(generator);
    EXPECT_EQ(LightOf(noisy), Step::Bad);
    auto faint = clean;
    for (float& sample : faint)
        sample += 5 * noise(generator);
    EXPECT_EQ(LightOf(faint), Step::Good);
}

} // namespace
} // namespace pulselark
