#include "session/Rescan.h"

#include "analysis/GCoherence.h"
#include "analysis/Spectrum.h"
#include "persistence/OpenSession.h"
#include "persistence/SessionFile.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Rescan : public SessionTest {
protected:
    std::string FileOf(Long seconds, unsigned seed, Integer mode) {
        MakeSession(seconds, seed);
        ChannelMode = mode;
        ChannelBPresent = ToBoolean(mode == 1);
        return SessionText();
    }

    // Opens the file and plays it to its end: every number that a second shows.
    std::vector<double> Play(const std::string& name) {
        OpenSessionFile(name);
        EXPECT_EQ(LastFileResult, FileSuccess);
        std::vector<double> numbers;
        while (timReplay.Enabled) {
            const Long s = SessionTick;
            ReplayTick();
            for (const double number :
                 {double{CoherenceA[s + 1]}, double{CoherenceB[s + 1]}, double{CoherenceAvgA[s + 1]},
                  double{IbiAvgA[s]}, double(PeakIndexA), double(PeakIndexB), SpectrumNormA, SpectrumNormB,
                  HrvLfA, HrvHfA, HrvLfB, HrvHfB})
                numbers.push_back(number);
        }
        return numbers;
    }
};

TEST_F(Rescan, NumbersDoNotDependOnWhatWasLoadedBefore) {
    Outside.Disk.Content["long.hti"] = FileOf(80, 1, 1);
    Outside.Disk.Content["short.hti"] = FileOf(30, 9, 2);
    const std::string& whole = Outside.Disk.Content["long.hti"];
    Outside.Disk.Content["broken.hti"] = whole.substr(0, whole.find('\n', 90000) + 1);
    PutEverythingBack();
    const auto fresh = Play("short.hti");
    EXPECT_EQ(fresh.size(), 30U * 12);
    Play("long.hti");
    EXPECT_EQ(Play("short.hti"), fresh);
    OpenSessionFile("broken.hti");
    EXPECT_EQ(LastFileResult, FailureInputPastEnd);
    EXPECT_EQ(Play("short.hti"), fresh);
}

TEST_F(Rescan, EverySecondIsThereBeforeTheFirstTick) {
    MakeSession(40);
    SessionName = "name";
    MovingAverageWidth = 3;
    Outside.Loop.OnYield = [] { EXPECT_EQ(Rescanning, Off); }; // without progress only the end yields
    RescanSession(false);
    EXPECT_EQ(labStatus.Caption, "name<136>");
    EXPECT_TRUE(Outside.Bar.Captions.empty());
    EXPECT_EQ(Outside.Loop.Yields, 1);
    for (Long s = 1; s <= 40; ++s)
        EXPECT_EQ(CoherenceA[s + 1] == 0.055F, s <= 12) << s;
    EXPECT_EQ(CoherenceA[42], 0);
    EXPECT_FLOAT_EQ(CoherenceAvgA[41],
                    (CoherenceA[38] + CoherenceA[39] + CoherenceA[40] + CoherenceA[41]) / 4);
    EXPECT_EQ(SpectrumTrack.A.LastSecond, 40);
    EXPECT_EQ(HrvPowerA[1], 0); // not part of the rescan
}

TEST_F(Rescan, ProgressIsDrawnByTheClockAndTheSessionStandsStill) {
    MakeSession(2000);
    int within = 0;
    Outside.Time.PerReading = 20;
    Outside.Loop.OnYield = [&] {
        within += Rescanning != Off ? 1 : 0;
        EXPECT_EQ(Outside.Bar.Visible, Rescanning != Off ? 1 : 0);
    };
    RescanSession(true);
    EXPECT_EQ(Outside.Bar.Captions, std::vector<std::string>{"scanning.."});
    ASSERT_GT(within, 2);
    EXPECT_LE(within, Outside.Time.Now / 33);
    EXPECT_TRUE(std::is_sorted(Outside.Bar.Percents.begin(), Outside.Bar.Percents.end()));
    EXPECT_GT(Outside.Bar.Percents.front(), 0);
    EXPECT_LE(Outside.Bar.Percents.back(), 100);
}

TEST_F(Rescan, TheReplayTakesUpWhatTheRescanLeft) {
    EcgA.Fill(2);
    EcgB.Fill(3);
    SessionSeconds = 20;
    RescanSession(false);
    StartReplay(false);
    Timers.Advance(1000);
    EXPECT_EQ(SpectrumRawA[SpectrumSlotA][1], 127 * 2 + 897 * 3); // channel B wrote the shared buffer last
    EXPECT_EQ(SpectrumRawB[SpectrumSlotB][1], 3 * 1024);
    EXPECT_EQ(SpectrumTrack.A.AverageCount, 1);
}

} // namespace
} // namespace pulselark
