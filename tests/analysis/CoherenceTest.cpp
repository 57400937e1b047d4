#include "analysis/GCoherence.h"
#include "analysis/Spectrum.h"
#include "session/AnalysisBuffers.h"
#include "session/SessionTick.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cmath>

namespace pulselark {
namespace {

using Coherence = SessionTest;

void AnalyseSecond(Long second) {
    AnalysisSecond = second;
    RunAnalyses();
}

// A constant has one bin; its transform is flat at 1 / ln 128, and the first of equal points is the peak.
TEST_F(Coherence, ConstantIsFlatAndTheFirstHighestPointWins) {
    EcgA.Fill(4);
    AnalyseSecond(20);
    for (int i = 1; i <= CoherenceCurvePoints; ++i)
        ASSERT_EQ(CepstrumA[CepstrumSlotA][i], static_cast<float>(1 / std::log(128.0))) << i;
    EXPECT_EQ(PeakIndexA, 11);
    EXPECT_EQ(CoherenceA[21], static_cast<float>(1 / std::log(128.0)));
    EXPECT_EQ(CoherenceA[20], 0);
    EXPECT_EQ(CoherenceB[21], 0);
}

TEST_F(Coherence, BeatsPeakAtTheirInterval) {
    for (const auto& [period, k] : {std::pair{0.75, 48}, {1.0, 64}, {1.25, 80}}) {
        ResetSessionBuffers();
        FillBeats(EcgB, period, 3);
        AnalyseSecond(40);
        EXPECT_EQ(PeakIndexB, k) << period;
        EXPECT_GT(CoherenceB[41], 0.05);
        EXPECT_EQ(CepstrumB[CepstrumSlotB][k + 1], CoherenceB[41]);
        EXPECT_EQ(PeakIndexA, 0);
    }
}

TEST_F(Coherence, WarmUpEndsAfterSecondTwelve) {
    MakeSession(20);
    AnalyseSecond(12);
    EXPECT_EQ(CoherenceA[13], 0.055F);
    EXPECT_EQ(PeakIndexA, 48); // the peak is found all the same
    AnalyseSecond(13);
    EXPECT_EQ(CoherenceA[14], CepstrumA[CepstrumSlotA][49]);
    EXPECT_NE(CoherenceA[14], 0.055F);
}

TEST_F(Coherence, SilenceStoresNothingAndKeepsThePeak) {
    MakeSession(60);
    AnalyseSecond(30);
    EcgA.Fill(0);
    AnalyseSecond(50);
    EXPECT_EQ(CoherenceA[51], 0);
    EXPECT_EQ(SpectrumNormA, 0);
    EXPECT_EQ(PeakIndexA, 48);
    EXPECT_EQ(CepstrumA[CepstrumSlotA], (Series<float, CoherenceCurvePoints>{}));
    AnalyseSecond(12);
    EXPECT_EQ(CoherenceA[13], 0.055F);
}

TEST_F(Coherence, TwinsAgreeBitForBit) {
    MakeSession(60);
    EcgB = EcgA;
    IbiB = IbiA;
    ChannelBPresent = On;
    for (const Long second : {1, 2, 3, 9, 20, 21, 22, 23, 40, 39, 7}) {
        AnalyseSecond(second);
        ASSERT_EQ(SpectrumRawA, SpectrumRawB) << second;
        ASSERT_EQ(SpectrumAvgA, SpectrumAvgB);
        ASSERT_EQ(SpectrumNormA, SpectrumNormB);
        ASSERT_EQ(CepstrumA, CepstrumB);
        ASSERT_EQ(CoherenceA, CoherenceB);
        ASSERT_EQ(PeakIndexA, PeakIndexB);
        ASSERT_EQ(HrvPowerA, HrvPowerB);
        ASSERT_EQ(IbiAvgA, IbiAvgB);
    }
}

TEST_F(Coherence, MovingAveragesByHand) {
    const float values[] = {8, 1, 2, 6, 3, 12};
    for (Long i = 1; i <= 6; ++i)
        CoherenceA[i] = CoherenceB[i] = IbiA[i] = IbiB[i] = values[i - 1];
    CoherenceAvgA[7] = -1; // beyond the second that is asked for
    IbiAvgB[1] = -1;
    MovingAverageWidth = 2;
    AnalysisSecond = 5;
    SmoothSeries();
    const double fromFirst[] = {8, 17 / 3.0, 11 / 3.0, 3, 11 / 3.0, 7};
    const double fromSecond[] = {1, 1, 4 / 3.0, 3, 11 / 3.0, 7};
    for (Long i = 1; i <= 6; ++i) {
        EXPECT_FLOAT_EQ(CoherenceAvgA[i], static_cast<float>(fromSecond[i - 1])) << i;
        EXPECT_FLOAT_EQ(IbiAvgA[i], static_cast<float>(fromFirst[i - 1])) << i;
    }
    EXPECT_EQ(CoherenceAvgA[7], -1);
    EXPECT_EQ(IbiAvgB[1], -1); // channel B is not there
    ChannelBPresent = On;
    SmoothSeries();
    for (Long i = 1; i <= 6; ++i) {
        EXPECT_FLOAT_EQ(CoherenceAvgB[i], static_cast<float>(fromFirst[i - 1])) << i;
        EXPECT_FLOAT_EQ(IbiAvgB[i], static_cast<float>(fromFirst[i - 1])) << i;
    }
}

// Long series and widths against a plain sum, over every border of the blocks in which the work is done.
TEST_F(Coherence, MovingAveragesOfAnyWidthAndLength) {
    MakeSession(400);
    for (const int width : {0, 1, 14, 29, 63, 64, 65, 500}) {
        for (const Long second : {0, 1, 14, 62, 63, 64, 65, 128, 399}) {
            MovingAverageWidth = static_cast<Integer>(width);
            IbiAvgA.Fill(-1);
            AnalysisSecond = second;
            SmoothSeries();
            for (Long j = 1; j <= second + 1; ++j) {
                double sum = 0;
                for (Long i = j - width; i <= j; ++i)
                    sum += IbiA[std::max<Long>(i, 1)];
                ASSERT_EQ(IbiAvgA[j], static_cast<float>(sum / (width + 1)))
                    << width << " " << second << " " << j;
            }
            ASSERT_EQ(IbiAvgA[second + 2], -1);
        }
    }
}

TEST_F(Coherence, AveragingKnob) {
    EXPECT_EQ(MovingAverageFromKnob(0), 0);
    EXPECT_EQ(MovingAverageFromKnob(500), 14); // 14.5
    EXPECT_EQ(MovingAverageFromKnob(518), 15);
    EXPECT_EQ(MovingAverageFromKnob(1000), 29);
    EXPECT_EQ(MovingAverageFromKnob(2000), 29);
}

} // namespace
} // namespace pulselark
