#include "analysis/Spectrum.h"

#include "session/AnalysisBuffers.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cmath>

namespace pulselark {
namespace {

struct Twin {
    const char* Name;
    EcgBuffer& Ecg;
    SpectrumRing &Raw, &Avg;
    Integer& Slot;
    double& Norm;
    SpectrumMemory& Memory;
    void (*Calc)();

    float Newest(int bin) const { return Avg[Slot][bin]; }
    void At(Long second) const {
        AnalysisSecond = second;
        Calc();
    }
};
const Twin twinA{"A",           EcgA,          SpectrumRawA,    SpectrumAvgA,
                 SpectrumSlotA, SpectrumNormA, SpectrumTrack.A, &CalcSpectrumA};
const Twin twinB{"B",           EcgB,          SpectrumRawB,    SpectrumAvgB,
                 SpectrumSlotB, SpectrumNormB, SpectrumTrack.B, &CalcSpectrumB};

const double Ln128 = std::log(128.0);

class Spectrum : public SessionTest, public testing::WithParamInterface<const Twin*> {
protected:
    const Twin& Own = *GetParam();
    const Twin& Other = &Own == &twinA ? twinB : twinA;
};
INSTANTIATE_TEST_SUITE_P(Twins, Spectrum, testing::Values(&twinA, &twinB),
                         [](const auto& twin) { return twin.param->Name; });

TEST_P(Spectrum, PureSineFillsItsBinOnly) {
    FillSine(Own.Ecg, 8.0, 100);
    Own.At(9);
    for (int bin = 1; bin <= SpectrumBins; ++bin)
        EXPECT_NEAR(Own.Newest(bin), bin == 65 ? 51200 : 0, 0.05) << bin; // 8 Hz, 100 * 1024 / 2
    EXPECT_NEAR(Own.Norm, 51200 * Ln128, 5);
    EXPECT_EQ(Own.Slot, 2);
    FillSine(Own.Ecg, 16.0, 100); // bin 129 is not part of the norm, bin 128 is
    Own.At(30);
    EXPECT_NEAR(Own.Newest(129), 51200, 0.05);
    EXPECT_NEAR(Own.Norm, 0, 5);
    FillSine(Own.Ecg, 15.875, 100);
    Own.At(50);
    EXPECT_NEAR(Own.Norm, 51200 * Ln128, 5);
}

TEST_P(Spectrum, ConstantFillsTheFirstBinAndTheOtherChannelIsLeftAlone) {
    Own.Ecg.Fill(4);
    Other.Ecg.Fill(9);
    const SpectrumRing before = Other.Avg;
    Own.At(3601);
    EXPECT_EQ(Own.Newest(1), 4096);
    EXPECT_EQ(Own.Newest(2), 0);
    EXPECT_DOUBLE_EQ(Own.Norm, 4096 * Ln128);
    EXPECT_EQ(Other.Avg, before);
    EXPECT_EQ(Other.Slot, 1);
    EXPECT_EQ(Other.Norm, 0);
    EXPECT_EQ(Other.Memory.LastSecond, 0);
}

TEST_P(Spectrum, NeighboursAreAveragedAndJumpsStartAnew) {
    Own.Ecg.Fill(1);
    Own.At(11);
    EXPECT_EQ(Own.Memory.AverageCount, 1);
    Own.Ecg.Fill(3);
    Own.At(12);
    EXPECT_EQ(Own.Newest(1), 2048); // mean of 1024 and 3072
    EXPECT_DOUBLE_EQ(Own.Norm, 2048 * Ln128);
    Own.Ecg.Fill(5);
    Own.At(11); // one back is a neighbour, too; two at most are averaged
    EXPECT_EQ(Own.Newest(1), 4096);
    Own.At(13);
    EXPECT_EQ(Own.Memory.AverageCount, 1);
    EXPECT_EQ(Own.Newest(1), 5120);
    const Integer slot = Own.Slot;
    Own.Ecg.Fill(7);
    Own.At(13); // analysed already
    EXPECT_EQ(Own.Slot, slot);
    EXPECT_EQ(Own.Newest(1), 5120);
    RecalcForced = On;
    Own.At(13);
    EXPECT_EQ(Own.Slot, slot + 1);
    EXPECT_EQ(Own.Memory.AverageCount, 1);
    EXPECT_EQ(Own.Newest(1), 7168);
}

TEST_P(Spectrum, RingTurnsAtTwentyAndTheMeanReachesAcross) {
    for (Long second = 10; second < 30; ++second) {
        Own.Ecg.Fill(static_cast<float>(second));
        Own.At(second);
        EXPECT_EQ(Own.Slot, second == 29 ? 1 : second - 8);
    }
    EXPECT_EQ(Own.Raw[20][1], 28 * 1024);
    EXPECT_EQ(Own.Newest(1), 28.5 * 1024);
    EXPECT_EQ(Own.Avg[20][1], 27.5 * 1024);
}

TEST_P(Spectrum, FirstSecondsKeepWhatTheBufferHeld) {
    Own.Ecg.Fill(2);
    Own.Ecg[1] = 1e6F; // never used
    Own.At(1);
    EXPECT_EQ(Own.Newest(1), 127 * 2);
    Own.At(8);
    EXPECT_EQ(Own.Newest(1), 1023 * 2);
    Own.At(9);
    Other.Ecg.Fill(16);
    Other.At(20);
    Own.At(2); // 255 samples of its own, the rest is the other channel's
    EXPECT_EQ(Own.Newest(1), 255 * 2 + 769 * 16);
    AnalysisSecond = 0;
    Own.Calc();
    EXPECT_EQ(Own.Newest(1), 255 * 2 + 769 * 16);
}

} // namespace
} // namespace pulselark
