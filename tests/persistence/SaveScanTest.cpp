#include "persistence/SaveScan.h"

#include "analysis/CoherenceBins.h"
#include "persistence/ScanFile.h"
#include "quickscan/QsAnalysis.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"
#include "support/TextLines.h"

namespace pulselark {
namespace {

class SavingScan : public SessionTest {
protected:
    SavingScan() {
        MakeSession(300);
        ChannelMode = 1;
        ChannelBPresent = On;
        SessionName = "session.hti";
        SessionUnsaved = On;
        SessionInfo[0] = "A title";
        SessionInfo[4] = "10:15";
        SessionInfo[20] = "0";
    }
    std::string Saved(const char* name = "out.plx") { return Outside.Disk.Content.at(name); }
};

TEST_F(SavingScan, TheScanFileLineByLine) {
    ScanPower1A = 6651.5;
    ScanPower2A = 2560.5; // to the even neighbour
    ScanPowerRatioA = 1.501;
    MeanHeartRateA = 69;
    ScanPeakA = 47;
    ScanPower1B = 1e15;
    ScanPowerRatioB = 0.849;
    for (int bin = 1; bin <= 10; ++bin)
        CohScoreBinsA[bin] = static_cast<Integer>(bin * bin);
    CohScoreBinsB[10] = 300;
    const std::string text = ScanText();
    EXPECT_EQ(text, "\"PulseLark Scan\"\r\n300\r\n1\r\n\"A title\"\r\n\"[no date]\"\r\n\"10:15\"\r\n"
                    "\"*** Channel A Scan ***\"\r\n6652\r\n2560\r\n1.5\r\n69\r\n47\r\n"
                    "1\r\n4\r\n9\r\n16\r\n25\r\n36\r\n49\r\n64\r\n81\r\n100\r\n0\r\n"
                    "\"*** Channel B Scan ***\"\r\n1E+15\r\n0\r\n.85\r\n0\r\n0\r\n"
                    "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n300\r\n0\r\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 40);
    SessionScore = 59;
    SessionInfo[0] = SessionInfo[4] = "";
    EXPECT_EQ(TrainingScanText(), "\"PulseLark GGZ Scan\"\r\n300\r\n\"[no title]\"\r\n\"[no date]\"\r\n"
                                  "\"[no time]\"\r\n6652\r\n2560\r\n1.5\r\n69\r\n47\r\n59\r\n");
}

TEST_F(SavingScan, AnExportMeasuresTheOtherChannelAndLeavesThePageAlone) {
    RecordingSurface page(707, 1000);
    picQS = &page;
    CoherenceB.Fill(0.044F);
    QuickScanResultShown = On;
    Outside.Dialogs.Answers = {"out.plx"};
    ExportScan();
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_EQ(CohScoreBinsB[4], 286);
    EXPECT_EQ(MeanHeartRateB, 75);
    EXPECT_EQ(Saved(), ScanText());
    EXPECT_EQ(QuickScanFresh, On);
    EXPECT_TRUE(page.Untouched());
    EXPECT_EQ(labStatus.Caption, "out.plx<138>");
    EXPECT_EQ(LastSaveFolder, "out.plx");
    EXPECT_EQ(SessionName + SessionInfo[20], "session.hti0"); // the session is as unsaved as before
    EXPECT_EQ(SessionUnsaved, On);
}

TEST_F(SavingScan, TrainingComputesItsFiguresAnew) {
    TrainingActive = On;
    QuickScanFresh = Off;
    DynamicIndex = 33;
    CoherenceA.Fill(0.055F);
    Outside.Dialogs.Answers = {"out.plx"};
    ExportScan();
    EXPECT_EQ(SessionScore, 27);
    EXPECT_EQ(MeanHeartRateA, 80);
    EXPECT_EQ(Saved(), TrainingScanText());
    EXPECT_EQ(DynamicIndex, 33);
    EXPECT_EQ(QuickScanFresh, Off);
}

TEST_F(SavingScan, RefusalCancelAndFailure) {
    SessionSeconds = 4;
    SaveScan();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<162>", ButtonOK}}));
    EXPECT_TRUE(Outside.Dialogs.Starts.empty());
    SessionSeconds = 5;
    SaveScan();
    EXPECT_EQ(LastFileResult, FailureCancelled);
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    Outside.Disk.WriteFailure = 61;
    Outside.Dialogs.Answers = {"out.plx"};
    SaveScan();
    EXPECT_EQ(LastFileResult, 61);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 2U);
    EXPECT_TRUE(Outside.Boxes.Shown[1].Text.starts_with("<163>_1 61\n"));
    EXPECT_EQ(labStatus.Caption, "<139>");
    EXPECT_EQ(SavingSession, Off);
}

} // namespace
} // namespace pulselark
