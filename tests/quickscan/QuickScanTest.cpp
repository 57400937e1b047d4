#include "quickscan/QuickScan.h"

#include "persistence/SaveScanPage.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QsPageFrame.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <algorithm>
#include <numeric>

namespace pulselark {
namespace {

class QuickScan : public SessionTest {
protected:
    QuickScan() {
        picQS = &Page;
        timQS.Handler = &QsTimerTick;
        ResetQuickScan();
    }
    void Session(Long seconds, bool channelB = true) {
        MakeSession(seconds);
        CoherenceA.Fill(0.055F);
        CoherenceB.Fill(0.033F);
        ChannelBPresent = ToBoolean(channelB);
    }
    void Scan() {
        QsButtonClick(0);
        Timers.Advance(60000);
        ASSERT_NE(QuickScanResultShown, Off);
    }
    bool PageSays(const std::string& part) const {
        return std::any_of(Page.Texts.begin(), Page.Texts.end(),
                           [&](const auto& text) { return text.Value.find(part) != std::string::npos; });
    }

    RecordingSurface Page{707, 1000};
};

TEST_F(QuickScan, TooShortASessionIsToldAndNotScanned) {
    const struct {
        Long Seconds;
        const char* Text;
    } cases[] = {{0, "<162>"}, {14, "<162>"}, {15, "<270>"}, {270, "<270>"}};
    for (const auto& [seconds, text] : cases) {
        SessionSeconds = seconds;
        Outside.Boxes.Shown.clear();
        QsButtonClick(0);
        EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{text, ButtonOK}})) << seconds;
        EXPECT_FALSE(timQS.Enabled);
        EXPECT_EQ(QuickScanResultShown, Off);
    }
    EXPECT_TRUE(Page.Untouched());
}

TEST_F(QuickScan, CountsOneTickForEachHundredSecondsAndThenShowsThePage) {
    const struct {
        Long Seconds;
        Integer Ticks;
    } cases[] = {{271, 3}, {300, 3}, {301, 4}, {3601, 37}};
    for (const auto& [seconds, ticks] : cases) {
        Session(seconds);
        ResetQuickScan();
        Outside.Bar = {};
        CohScoreBinsB.Fill(5);
        QsButtonClick(0);
        EXPECT_EQ(Outside.Bar.Captions, std::vector<std::string>{"<237>"});
        Timers.Advance(std::int64_t{100} * ticks);
        EXPECT_EQ(QsTickCount, ticks);
        EXPECT_EQ(QuickScanResultShown, Off) << seconds;
        Timers.Advance(100);
        EXPECT_EQ(QuickScanResultShown, On) << seconds;
        EXPECT_FALSE(timQS.Enabled);
        EXPECT_EQ(Outside.Bar.Visible, 0);
        EXPECT_EQ(Outside.Bar.Percents.size(), static_cast<std::size_t>(ticks));
        EXPECT_EQ(Outside.Bar.Percents.front(), 0);
        EXPECT_EQ(Outside.Bar.Percents.back(), 100); // the bar's formula runs beyond its end
        EXPECT_EQ(labQSMenu[0].Caption, "<158>");
        EXPECT_EQ(CohScoreBinsA[5], seconds - 14);
        EXPECT_EQ(std::accumulate(CohScoreBinsB.begin(), CohScoreBinsB.end(), 0), 0);
    }
}

TEST_F(QuickScan, AReplayIsEndedAndARecordingRefusesTheScan) {
    Session(300);
    StartReplay(false);
    QsButtonClick(0);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_TRUE(timQS.Enabled);
    ResetQuickScan();
    SessionRunning = On;
    QsButtonClick(0);
    EXPECT_FALSE(timQS.Enabled);
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<266>", ButtonOK}}));
}

TEST_F(QuickScan, ClicksFlipTheChannels) {
    Session(300);
    Scan();
    EXPECT_TRUE(PageSays("<181>"));
    for (const char* title : {"<182>", "<181>", "<182>"}) {
        Page.Forget();
        picSliderAv.Visible = true;
        QsButtonClick(0);
        EXPECT_TRUE(PageSays(title));
        EXPECT_TRUE(PageSays(" BMP"));
        EXPECT_FALSE(picSliderAv.Visible);
    }
    EXPECT_EQ(CohScoreBinsB[3], 286);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(QuickScan, OneChannelAlternatesWithAnEmptyPage) {
    Session(300, false);
    Scan();
    for (int round = 1; round <= 2; ++round) {
        Page.Forget();
        QsButtonClick(0);
        EXPECT_EQ(Outside.Boxes.Shown.size(), static_cast<std::size_t>(round));
        EXPECT_EQ(Outside.Boxes.Shown.back(), (FakeMessages::Message{"<267>", ButtonOK}));
        EXPECT_TRUE(PageSays("<182>"));
        EXPECT_FALSE(PageSays(" BMP"));
        QsButtonClick(0);
        EXPECT_TRUE(PageSays(" BMP"));
    }
    EXPECT_EQ(Outside.Boxes.Shown.size(), 2U);
}

TEST_F(QuickScan, ALoadEndsACountdown) {
    Session(300);
    QsButtonClick(0);
    LoadingSession = On;
    Timers.Advance(1000); // nothing is counted while a file is read
    EXPECT_EQ(QsTickCount, 0);
    LoadingSession = Off;
    ResetQuickScan();
    Timers.Advance(1000);
    EXPECT_EQ(QuickScanResultShown, Off);
    EXPECT_EQ(Outside.Bar.Visible, 0);
    QsButtonClick(0);
    SessionSeconds = 100; // a load that failed leaves less to scan
    Timers.Advance(1000);
    EXPECT_EQ(QuickScanResultShown, Off);
    EXPECT_FALSE(timQS.Enabled);
    EXPECT_TRUE(Page.Untouched());
}

TEST_F(QuickScan, PrintsTheShownPageInTheShapeOfTheSheet) {
    Session(300);
    Scan();
    Outside.Loop.OnYield = [] { EXPECT_EQ(QsPrinting, Off); };
    // Upright, American and turned sheets: 1 / 1.1 of the sheet each way, in units of 1/96 inch.
    for (const PaperSize sheet : {PaperSize{793.7, 1122.5}, PaperSize{816, 1056}, PaperSize{1122.5, 793.7}}) {
        Outside.Printer.Sheet = sheet;
        Outside.Printer.Steps.clear();
        Page.Forget();
        QsButtonClick(1);
        EXPECT_EQ(Outside.Printer.Steps, "cpe");
        const RecordingSurface& paper = Outside.Printer.Page;
        EXPECT_NEAR(paper.Width() * 1.1, sheet.Width, 1e-6);
        EXPECT_NEAR(paper.Height() * 1.1, sheet.Height, 1e-6);
        const auto title = std::find_if(paper.Texts.begin(), paper.Texts.end(),
                                        [](const auto& text) { return text.Value == "<184><181>"; });
        ASSERT_NE(title, paper.Texts.end());
        EXPECT_NEAR(title->X, 0.15 * paper.Width(), 1e-6);
        for (const auto& plate : paper.Boxes) { // no ground is painted on paper but behind texts
            EXPECT_EQ(plate.Ink, MakeColour(255, 255, 255));
            EXPECT_LT(plate.Y2 - plate.Y1, 0.02 * paper.Height());
        }
        EXPECT_TRUE(PageSays(" BMP")); // the screen's page is drawn anew
    }
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(QuickScan, PrintingTellsItsFailuresAndPutsThePanelBack) {
    QsButtonClick(1);
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<162>", ButtonOK}}));
    EXPECT_TRUE(Outside.Printer.Steps.empty());
    Session(300);
    Scan();
    for (Integer* step :
         {&Outside.Printer.ChoiceFailure, &Outside.Printer.PaintFailure, &Outside.Printer.EndFailure}) {
        for (const Integer failure : std::initializer_list<Integer>{32755, 380, 57, 61}) {
            Outside.Boxes.Shown.clear();
            Page.Forget();
            *step = failure;
            QsButtonClick(1);
            const std::vector<FakeMessages::Message> told{{"<161>", ButtonOK}};
            EXPECT_EQ(Outside.Boxes.Shown, failure < 100 ? told : std::vector<FakeMessages::Message>{});
            EXPECT_EQ(picQS, &Page);
            EXPECT_EQ(QsPrinting | DialogOpen, Off);
            EXPECT_TRUE(PageSays(" BMP"));
        }
        *step = 0;
    }
}

TEST_F(QuickScan, ThePageIsSavedWholeOrNotAtAll) {
    SaveScanPage();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<162>", ButtonOK}}));
    Session(300);
    Scan();
    SaveScanPage(); // the dialog is cancelled
    EXPECT_EQ(LastFileResult, 32755);
    Outside.Dialogs.Answers = {"a.pdf"};
    SaveScanPage();
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_EQ(Outside.Disk.Content.at("a.pdf"), "%PDF <121>");
    EXPECT_EQ(labStatus.Caption, "a.pdf<138>");
    for (Integer* step : {&Outside.Printer.PdfFailure, &Outside.Disk.WriteFailure}) {
        Outside.Disk.Content["a.pdf"] = "old";
        Outside.Dialogs.Answers = {"a.pdf"};
        Outside.Boxes.Shown.clear();
        *step = 57;
        SaveScanPage();
        *step = 0;
        ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
        EXPECT_TRUE(Outside.Boxes.Shown[0].Text.starts_with("<163>_1 57\n"));
        EXPECT_EQ(Outside.Disk.Content["a.pdf"], "old");
        EXPECT_EQ(SavingSession, Off);
    }
}

TEST_F(QuickScan, EntriesHaveTheirColours) {
    QsButtonHover(0, QsPointer::Over);
    QsButtonHover(1, QsPointer::Pressed);
    EXPECT_EQ(labQSMenu[0].ForeColour, MakeColour(0xE5, 0xE5, 0xDB));
    EXPECT_EQ(labQSMenu[1].ForeColour, MakeColour(0xD2, 0xD2, 0xC8));
    QsButtonHover(0, QsPointer::Away);
    EXPECT_EQ(labQSMenu[0].ForeColour, 0U);
}

} // namespace
} // namespace pulselark
