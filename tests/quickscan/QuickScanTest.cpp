#include "quickscan/QuickScan.h"

#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPrint.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

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

Integer printResult;
Integer PrintForTest(void (*draw)(Surface&)) {
    RecordingSurface paper(500, 707);
    draw(paper);
    EXPECT_FALSE(paper.Texts.empty());
    EXPECT_TRUE(paper.Boxes.empty()); // no ground is painted on paper
    return printResult;
}

TEST_F(QuickScan, PrintingTellsItsFailuresAndPutsThePanelBack) {
    QsButtonClick(1);
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<162>", ButtonOK}}));
    Session(300);
    Scan();
    PrintOnePage = &PrintForTest;
    const struct {
        Integer Result;
        std::size_t Messages;
    } cases[] = {{0, 0}, {32755, 0}, {57, 1}};
    for (const auto& [result, messages] : cases) {
        Outside.Boxes.Shown.clear();
        Page.Forget();
        printResult = result;
        QsButtonClick(1);
        EXPECT_EQ(Outside.Boxes.Shown.size(), messages) << result;
        EXPECT_EQ(picQS, &Page);
        EXPECT_EQ(QsPrinting, Off);
        EXPECT_TRUE(PageSays(" BMP"));
    }
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<161>");
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
