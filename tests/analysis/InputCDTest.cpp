#include "analysis/InputCD.h"

#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/RedrawPanels.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"

namespace pulselark {
namespace {

// On a panel of 578 x 200 units and 6 units a character one sample is one unit wide and 100 units of signal
// are 10 high: 578 - 30 for "00:00" - 36 for "+500mV" = 512 samples.
class EcgPanel : public SessionTest {
protected:
    EcgPanel() {
        picIA = &Panel;
        picIB = &PanelB;
        picIAP = &Twin;
        for (Long i = 1; i <= 1280; ++i)
            EcgA[i] = static_cast<float>(i % 100);
        SessionSeconds = RecordedSeconds = 10;
        OpenEcgPanel(false);
        Panel.Forget();
    }

    std::vector<std::string> TimesOf(Long second) {
        RedrawEcg(Panel, PanelB, second);
        std::vector<std::string> times;
        for (std::size_t i = Panel.Texts.size() - 6; i + 1 < Panel.Texts.size(); ++i)
            times.push_back(Panel.Texts[i].Value);
        return times;
    }

    RecordingSurface Panel{578, 200}, PanelB{578, 200}, Twin{578, 200};
};

using Times = std::vector<std::string>;

TEST_F(EcgPanel, EveryLineAndLabelHasItsPlace) {
    DrawEcgA(Panel, 9);
    using Text = RecordingSurface::Text;
    const std::string sans = "MS Sans Serif";
    const std::vector<Text> texts{
        {18, 106, "0mV", sans},   {0, 156, "+500mV", sans}, {0, 56, "-500mV", sans},
        {548, 12, "00:09", sans}, {420, 12, "00:08", sans}, {292, 12, "00:07", sans},
        {164, 12, "00:06", sans}, {36, 12, "00:05", sans},  {37.5, 200, "<128>", "Arial"}};
    EXPECT_EQ(Panel.Texts, texts);
    constexpr Colour Grid = 0x893523;
    const std::vector<RecordingSurface::Segment> segments{
        {42, 100, 578, 100, Grid}, {42, 150, 578, 150, Grid}, {42, 50, 578, 50, Grid},
        {563, 12, 563, 200, Grid}, {435, 12, 435, 200, Grid}, {307, 12, 307, 200, Grid},
        {179, 12, 179, 200, Grid}, {51, 12, 51, 200, Grid}};
    EXPECT_EQ(Panel.Segments, segments);
    EXPECT_EQ(labPTime.Caption, "00:09");
}

TEST_F(EcgPanel, TraceIsDrawnTwiceNewestAtTheRight) {
    DrawEcgA(Panel, 9);
    ASSERT_EQ(Panel.Traces.size(), 2U);
    EXPECT_EQ(Panel.Traces[0].DrawWidth, 3);
    EXPECT_EQ(Panel.Traces[0].Ink, MakeColour(132, 135, 149)); // half-way from white to 10, 15, 43
    EXPECT_EQ(Panel.Traces[1].DrawWidth, 1);
    EXPECT_EQ(Panel.Traces[1].Ink, 0xFFFFFFU);
    for (const auto& trace : Panel.Traces) {
        ASSERT_EQ(trace.Points.size(), 513U);
        for (Long n = 0; n <= 512; ++n) {
            const PanelPoint& point = trace.Points[static_cast<std::size_t>(n)];
            EXPECT_DOUBLE_EQ(point.X, 563.0 - n);
            EXPECT_DOUBLE_EQ(point.Y, 100 + 0.1 * ((1152 - n) % 100));
        }
    }
}

TEST_F(EcgPanel, StartAndEndOfTheSession) {
    EXPECT_EQ(TimesOf(10), (Times{"end", "00:09", "00:08", "00:07", "00:06"}));
    EXPECT_EQ(Panel.Texts[3].X, 554); // three characters, still centred on the line
    EXPECT_EQ(TimesOf(2), (Times{"00:02", "00:01", "00:00", "--:--", "--:--"}));
    ASSERT_EQ(Panel.Traces.back().Points.size(), 255U); // sample 1 is not drawn
    EXPECT_DOUBLE_EQ(Panel.Traces.back().Points.back().Y, 100.2);
    EXPECT_EQ(TimesOf(1), TimesOf(2));
    EXPECT_EQ(labPTime.Caption, "00:02");
    SessionRunning = On; // a running session has no end
    EXPECT_EQ(TimesOf(10).front(), "00:10");
    SessionRunning = Off;
    SessionSeconds = 0;
    EXPECT_EQ(TimesOf(0), (Times{"--:--", "--:--", "--:--", "--:--", "--:--"}));
}

TEST_F(EcgPanel, TheSameSecondIsDrawnOnceUnlessForced) {
    DrawEcgA(Panel, 9);
    Panel.Forget();
    labPTime.Caption = "";
    DrawEcgA(Panel, 9);
    EXPECT_TRUE(Panel.Untouched());
    EXPECT_EQ(labPTime.Caption, "00:09");
    EcgForceRedraw = On;
    DrawEcgA(Panel, 9);
    EXPECT_EQ(Panel.Traces.size(), 2U);
    EXPECT_EQ(EcgForceRedraw, Off);
    EXPECT_TRUE(PanelB.Traces.empty()); // each panel has its own second
    DrawEcgB(PanelB, 9);
    EXPECT_EQ(PanelB.Traces.size(), 2U);
}

TEST_F(EcgPanel, ThePictureStandsUntilTheNewOneIsComplete) {
    DrawEcgA(Panel, 9);
    EXPECT_EQ(Panel.Calls, "pRP"); // not kept while it is drawn, then kept
    DrawEcgA(Twin, 8);
    EXPECT_EQ(Twin.Calls.back(), 'C');
    RecordingSurface gone(0, 0);
    DrawEcgA(gone, 7);
    EXPECT_TRUE(gone.Untouched());
}

TEST_F(EcgPanel, OpeningPaintsTheBackgroundAndRespectsALockedRecording) {
    OpenAllPanels(false);
    EXPECT_EQ(Panel.Calls.substr(0, 3), "PIS");
    EXPECT_EQ(Panel.ForeColour(), 0xB5EB81U);
    EXPECT_DOUBLE_EQ(EcgPixelUnit, 0.125);
    SessionRunning = On;
    Panel.Forget();
    OpenAllPanels(false);
    EXPECT_TRUE(Panel.Untouched());
    OpenAllPanels(true);
    EXPECT_FALSE(Panel.Untouched());
    RecordingSurface narrow(40, 20);
    picIA = &narrow;
    OpenEcgPanel(true);
    EXPECT_EQ(EcgPixelUnit, 0);
}

} // namespace
} // namespace pulselark
