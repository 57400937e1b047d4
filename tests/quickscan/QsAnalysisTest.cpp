#include "quickscan/QsAnalysis.h"

#include "analysis/CoherenceBins.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cmath>
#include <numbers>

namespace pulselark {
namespace {

class QsAnalysis : public SessionTest {
protected:
    // Intervals of 1 s that swing `cycles` times in the 256 seconds before second 300.
    static void Swing(int cycles) {
        SessionSeconds = 300;
        IbiA.Fill(1);
        for (Long i = 45; i <= 300; ++i)
            IbiA[i] = static_cast<float>(1 + 0.1 * std::sin(2 * std::numbers::pi * cycles * (i - 44) / 256));
    }
};

TEST_F(QsAnalysis, SizesOfTheSpectrum) {
    const Long sizes[][2] = {{100, 128},   {256, 128},   {271, 256},   {512, 256},  {513, 512},
                             {2049, 2048}, {4096, 2048}, {4097, 4096}, {8192, 4096}};
    for (const auto& [seconds, size] : sizes)
        EXPECT_EQ(QsSizeSpectrum(seconds), size) << seconds;
}

TEST_F(QsAnalysis, TheBandsBeginAndEndAtTheirBins) {
    // Bin i holds i - 1 cycles. A sine of 10 at the transform's input: (10 * 128)^2 / 100.
    const struct {
        int Cycles;
        double Low, High;
    } cases[] = {{8, 0, 0}, {9, 16384, 0}, {36, 16384, 0}, {37, 0, 16384}, {101, 0, 16384}, {102, 0, 0}};
    for (const auto& [cycles, low, high] : cases) {
        Swing(cycles);
        QsCalcSpectrum();
        EXPECT_NEAR(ScanPower1A, low, 1) << cycles;
        EXPECT_NEAR(ScanPower2A, high, 1) << cycles;
        EXPECT_NEAR(QsSpectrum[cycles + 1], 16384, 1);
    }
}

TEST_F(QsAnalysis, ChannelBTakesTheIntervalsOfAForItsSpectrumAndItsOwnForTheRate) {
    Swing(20);
    IbiB.Fill(0.5F);
    QuickScanFresh = Off;
    QsMeasure();
    EXPECT_NEAR(ScanPower1B, 16384, 1);
    EXPECT_EQ(MeanHeartRateB, 120);
    EXPECT_EQ(ScanPower1A + MeanHeartRateA, 0);
}

TEST_F(QsAnalysis, ResultsStayWhereThereIsNothingToCompute) {
    Swing(40);
    QsCalcSpectrum();
    const double ratio = ScanPowerRatioA;
    EXPECT_LT(ratio, 1e-3);
    IbiA.Fill(1);
    ScanPowerRatioA = 7;
    QsCalcSpectrum();
    EXPECT_EQ(ScanPower1A + ScanPower2A, 0);
    EXPECT_EQ(ScanPowerRatioA, 7); // no power in the high band
    SessionSeconds = 270;
    ScanPower1A = 3;
    QsCalcSpectrum();
    EXPECT_EQ(ScanPower1A, 3);
    SessionSeconds = 13;
    MeanHeartRateA = 60;
    IbiA.Fill(0.5F);
    QsMeanRateA();
    EXPECT_EQ(MeanHeartRateA, 60);
    SessionSeconds = 14; // one value counts
    QsMeanRateA();
    EXPECT_EQ(MeanHeartRateA, 120);
}

TEST_F(QsAnalysis, HistogramCountsFromSecondFifteen) {
    CoherenceA.Fill(0.5F); // the first 14 and what lies after the session must not count
    for (Long i = 15; i <= 24; ++i)
        CoherenceA[i] = static_cast<float>(0.011 * static_cast<double>(i - 15)); // bins 0 to 9
    Integer window = 9;
    BinCoherence(CoherenceA, window, 24);
    for (int bin = 1; bin <= 9; ++bin)
        EXPECT_EQ(CohScoreBinsA[bin], 1) << bin;
    EXPECT_EQ(CohScoreBinsA[10], 0);
    EXPECT_NEAR(QsCoherencePercent, 45 * 10 / 9.0, 1e-3);
    EXPECT_EQ(ScanPeakA, 50);
    EXPECT_EQ(window, 9);
    window = 10; // begins within the settling time: nothing changes
    CoherenceA.Fill(0.2F);
    BinCoherence(CoherenceA, window, 24);
    EXPECT_EQ(CohScoreBinsA[9], 1);
    window = 61;
    BinCoherence(CoherenceA, window, 100);
    EXPECT_EQ(window, 85);
    EXPECT_EQ(CohScoreBinsA[10], 86);
}

TEST_F(QsAnalysis, AnEmptyHistogramKeepsThePlainSumAndScoresNothing) {
    CoherenceB.Fill(0.005F);
    QuickScanFresh = Off;
    CohScoreBinsA.Fill(4);
    Integer window = 285;
    BinCoherence(CoherenceB, window, 300);
    EXPECT_NEAR(QsCoherencePercent, 286 * 0.005, 1e-6);
    EXPECT_EQ(ScanPeakB, 1);
    EXPECT_EQ(CohScoreBinsB, CoherenceHistogram{});
    EXPECT_EQ(CohScoreBinsA[1], 4);
    EXPECT_EQ(ScoreCoherenceBins(), 0);
}

TEST_F(QsAnalysis, ScoresOfHistograms) {
    // The curve itself; one bin in the middle, (1 - 2 * 0.0026) * 111.6 / 4.1522; one at the edge; all alike,
    // where 10 - 2 * 5.8478 is below nothing.
    const struct {
        std::array<Integer, 10> Bins;
        Integer Score;
    } cases[] = {{{56, 197, 485, 833, 997, 833, 485, 197, 56, 11}, 100},
                 {{0, 0, 0, 0, 9, 0, 0, 0, 0, 0}, 27},
                 {{0, 0, 0, 0, 0, 0, 0, 0, 0, 9}, 0},
                 {{3, 3, 3, 3, 3, 3, 3, 3, 3, 3}, 0},
                 {{0, 0, 5, 8, 10, 8, 5, 0, 0, 0}, 95}};
    for (const auto& [bins, score] : cases) {
        std::copy(bins.begin(), bins.end(), CoherenceBins.begin());
        EXPECT_EQ(ScoreCoherenceBins(), score);
    }
}

} // namespace
} // namespace pulselark
