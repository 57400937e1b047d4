#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"

#include <cmath>

namespace pulselark {
namespace {

constexpr Colour Percent = 0xE88284;
constexpr Colour Rate = 0x4149CE;

// "100% 60.5bpm**" is 84 units wide, "100%*" 30, "100" 18, "00:00" 30.
class HistoryPanel : public PanelTest {
protected:
    HistoryPanel() {
        AnalysisSecond = 200;
        for (Long second = 1; second <= 400; ++second) {
            CoherenceAvgA[second] = static_cast<float>(0.02 + 0.002 * (second % 37));
            CoherenceAvgB[second] = 0.05F;
            IbiAvgA[second] = static_cast<float>(0.6 + 0.01 * (second % 41));
            IbiAvgB[second] = 1;
        }
    }

    void Draw(const Size& size) {
        Place(size, picHisA, picHisB);
        OpenHistoryPanel(0);
        A->Forget();
        B->Forget();
        RedrawHistory();
    }

    // Everything above the baseline's last line, which is drawn once there are curves.
    static Axes AxesFor(const Size& size, const std::array<CaptionLabel, 3>& captions,
                        const CaptionLabel& rate) {
        const auto [w, h] = size;
        Axes axes;
        const double count = std::nearbyint(12000 / HistoryGain);
        const int step = StepOf(12, h / count);
        double highest = 0;
        for (int value = 0; value <= 100; value += step) {
            const double y = value * h / count + TH + 6;
            if (y > h)
                break;
            highest = y;
            const bool last = value == 100 || y + step * h / count > h;
            const std::string percent = std::to_string(value);
            const std::string bpm =
                value % 2 == 0 ? std::to_string(40 + value / 2) : std::to_string(40 + value / 2) + ".5";
            axes.Texts.push_back({18 - Wide(percent), y, last ? percent + "%" : percent});
            axes.Texts.push_back({30, y, last ? bpm + "bpm" : bpm});
        }
        // The captions, 16 units high, leave the left edge to a label that reaches more than 3 into them.
        const double captionsLeft = highest > h - 16 + 3 ? 84 : 0;
        const double captionsRight = captionsLeft + captions[0].Width + captions[1].Width + captions[2].Width;
        for (int value = 0; value <= 100; value += step) {
            const double y = value * h / count + TH;
            const bool among = y > h - 16;
            const double from = among ? captionsRight + 6 : 84;
            const double to = among ? w - rate.Width : w;
            if (to > from)
                axes.Lines.push_back({from, y, to, y, value % 10 == 0 && step < 10 ? 2 : 1});
        }
        const int seconds = StepOf(30, w / HistorySpanSeconds, true);
        for (Long second = 0; second <= AnalysisSecond; second += seconds) {
            const double x = w - (AnalysisSecond - second) * w / HistorySpanSeconds;
            if (x <= 84)
                continue;
            axes.Vertical(x, h);
            char label[16];
            std::snprintf(label, sizeof label, "%02d:%02d", second / 60, second % 60);
            // Where even the widest step has no room for its labels, every second one is left out.
            const bool room = seconds * w / HistorySpanSeconds >= 30 || second / seconds % 2 == 0;
            if (x + 15 <= w && room)
                axes.Texts.push_back({x - 15, TH, label});
        }
        if (AnalysisSecond > 2)
            axes.Lines.push_back({84, TH, w, TH, 1});
        return axes;
    }

    // Points of a curve: the newest second one second's width from the right edge, backwards while the next
    // point lies right of the scales.
    static std::size_t PointsOf(const Size& size) {
        const Long shown = std::min<Long>(AnalysisSecond, HistorySpanSeconds);
        Long segments = 0;
        while (segments < shown - 2 && size.W - size.W / HistorySpanSeconds * (segments + 2) > 84)
            ++segments;
        return segments == 0 ? 0 : static_cast<std::size_t>(segments) + 1;
    }
    static PanelPoint CoherenceAt(const Size& size, int i) {
        return {size.W - size.W / HistorySpanSeconds * (i + 1),
                size.H * HistoryGain / 13.3 * CoherenceAvgA[AnalysisSecond - i] + TH + 2};
    }
    static PanelPoint RateAt(const Size& size, int i) {
        const double ibi = IbiAvgA[AnalysisSecond - i];
        const double value = ibi <= 0 || 2 / ibi < 1.333 ? 0.667 : 2 / ibi - 1.333;
        return {size.W - size.W / HistorySpanSeconds * (i + 1), size.H * HistoryGain / 200 * value + TH + 2};
    }
};

TEST_F(HistoryPanel, AxesAtEverySizeGainAndSpan) {
    for (const Size& size : Sizes) {
        for (const double s : {100.0, 85.0, 108.0, 130.0}) {
            for (const int span : {60, 10, 364}) {
                for (const Long second : {200, 2, 61}) {
                    SCOPED_TRACE(testing::Message()
                                 << size.W << " wide, s " << s << " span " << span << " at " << second);
                    HistoryGain = Gain(s);
                    HistorySpanSeconds = static_cast<Integer>(span);
                    AnalysisSecond = second;
                    Draw(size);
                    ExpectAxes(*A, AxesFor(size, labLeftHis, labBPMA));
                    ExpectAxes(*B, AxesFor(size, labRightHis, labBPMB));
                    ExpectNoCollision(*A);
                }
            }
        }
    }
}

TEST_F(HistoryPanel, AxesByHand) {
    Draw({900, 400}); // 120 in 400 units: a step of 5; 15 units a second: one of 2
    ASSERT_GT(A->Texts.size(), 42U);
    using Text = RecordingSurface::Text;
    const std::string sans = "MS Sans Serif";
    EXPECT_EQ(A->Texts[0], (Text{12, 18, "0", sans}));
    EXPECT_EQ(A->Texts[1], (Text{30, 18, "40", sans}));
    EXPECT_EQ(A->Texts[3].Value + A->Texts[40].Value + A->Texts[41].Value, "42.5100%90bpm");
    EXPECT_EQ(A->Texts[0].Ink, Percent);
    EXPECT_EQ(A->Texts[1].Ink, 0x474AE1U);
    EXPECT_EQ(A->Texts.back().Ink, 0xA46B79U);
    EXPECT_EQ(A->Texts.back().Value, "03:18"); // 03:20 would be cut by the edge
    EXPECT_EQ(A->Texts.back().X, 900 - 30 - 15);
    EXPECT_EQ(A->ForeColour(), 0xB5EB81U); // as it was before
}

TEST_F(HistoryPanel, EveryPointOfBothCurves) {
    IbiAvgA[190] = 0;
    IbiAvgA[185] = 2; // 30 beats a minute lie below the scale
    for (const Size& size : Sizes) {
        for (const int span : {60, 10, 364}) {
            HistorySpanSeconds = static_cast<Integer>(span);
            HistoryGain = Gain(95);
            Draw(size);
            const std::size_t count = PointsOf(size);
            ASSERT_GT(count, 2U);
            ASSERT_EQ(A->Traces.size(), 4U);
            const auto rate = [&](int i) { return RateAt(size, i); };
            const auto coherence = [&](int i) { return CoherenceAt(size, i); };
            ExpectTrace(A->Traces[0], count, HalfWay(Rate, 0x2B0F0A), 3, rate);
            ExpectTrace(A->Traces[1], count, Rate, 1, rate);
            ExpectTrace(A->Traces[2], count, HalfWay(Percent, 0x2B0F0A), 3, coherence);
            ExpectTrace(A->Traces[3], count, Percent, 1, coherence);
            EXPECT_NEAR(B->Traces[1].Points[1].Y, size.H * HistoryGain / 200 * 0.667 + TH + 2, 0.5);
        }
    }
}

TEST_F(HistoryPanel, NineStyles) {
    // C and R a line of coherence and rate, c and r the area.
    const char* styles[] = {"C", "R", "RC", "c", "r", "cR", "rC", "rc", "cr"};
    const Size size{300, 150};
    for (int style = 1; style <= 9; ++style) {
        Place(size, picHisA, picHisB);
        OpenHistoryPanel(0);
        A->Forget();
        SetHistoryStyle(style);
        std::string drawn;
        for (std::size_t i = 0; i < A->Traces.size(); ++i) {
            const auto& trace = A->Traces[i];
            if (trace.DrawWidth == 3)
                continue;
            const bool line = trace.Ink == Percent || trace.Ink == Rate;
            const bool coherence = trace.Ink == Percent || trace.Ink == HalfWay(Percent, 0x2B0F0A);
            drawn += coherence ? (line ? 'C' : 'c') : (line ? 'R' : 'r');
        }
        EXPECT_EQ(drawn, styles[style - 1]);
        EXPECT_EQ(A->Fills.size(), static_cast<std::size_t>(std::count_if(drawn.begin(), drawn.end(),
                                                                          [](char c) { return c >= 'a'; })));
    }
    SetHistoryStyle(0);
    EXPECT_EQ(HistoryStyle, 1);
    SetHistoryStyle(10);
    EXPECT_EQ(HistoryStyle, 9);
}

TEST_F(HistoryPanel, AFilledSeriesIsClosedAndItsFrameRemoved) {
    HistoryStyle = 4;
    Draw({300, 150});
    const Colour mix = HalfWay(Percent, 0x2B0F0A);
    EXPECT_EQ(A->Fills, (std::vector<RecordingSurface::Fill>{{293, 137, mix, Percent}}));
    EXPECT_EQ(A->Order.substr(A->Order.find('c')), "clllflll"
                                                   "l");
    const PanelPoint first = A->Traces[0].Points.front();
    const PanelPoint last = A->Traces[0].Points.back();
    const std::vector<RecordingSurface::Segment> end(A->Segments.end() - 7, A->Segments.end());
    const std::vector<RecordingSurface::Segment> wanted{{first.X, first.Y, first.X, 12, mix},
                                                        {last.X, last.Y, last.X, 12, mix},
                                                        {first.X, 12, last.X, 12, mix},
                                                        {84, 12, 300, 12, 0x893523},
                                                        {first.X, first.Y, first.X, 12, Percent},
                                                        {last.X, last.Y, last.X, 12, Percent},
                                                        {84, 12, 300, 12, 0x893523}};
    EXPECT_EQ(end, wanted);
}

TEST_F(HistoryPanel, TheFirstSecondsAndAShortSession) {
    const Size size{300, 150};
    const std::size_t points[] = {0, 0, 0, 2, 3}; // by second, from 0
    for (Long second = 1; second <= 4; ++second) {
        AnalysisSecond = second;
        Draw(size);
        const std::size_t found = A->Traces.empty() ? 0 : A->Traces[0].Points.size();
        EXPECT_EQ(found, points[second]) << second;
        EXPECT_GT(A->Texts.size(), 10U);
    }
    EXPECT_EQ(A->Traces[0].Points.back().X, 300 - 3 * 5); // the rest stays empty
    AnalysisSecond = 200;
    TrainingActive = On;
    FeedbackMode = 1; // this training has no use for the coherence
    Draw(size);
    EXPECT_EQ(A->Traces.size(), 2U);
    EXPECT_EQ(A->Traces[1].Ink, Rate);
}

TEST_F(HistoryPanel, TheSameSecondIsDrawnOnce) {
    Draw({300, 150});
    const auto redrawn = [this] {
        A->Forget();
        DrawHistoryA();
        return !A->Untouched();
    };
    EXPECT_FALSE(redrawn());
    HistoryGain = 110; // alone no reason
    EXPECT_FALSE(redrawn());
    ScaleDragging = On;
    EXPECT_TRUE(redrawn());
    EXPECT_FALSE(redrawn());
    HistoryGain = 110.2; // the same when rounded
    EXPECT_FALSE(redrawn());
    HistorySpanSeconds = 61;
    EXPECT_TRUE(redrawn());
    EXPECT_FALSE(redrawn());
    HistoryForceRedraw = On;
    EXPECT_TRUE(redrawn());
    HistoryForceRedraw = Off;
    AnalysisSecond = 201;
    EXPECT_TRUE(redrawn());
    B->Forget();
    DrawHistoryB(); // B has a memory of its own
    EXPECT_FALSE(B->Untouched());
}

TEST_F(HistoryPanel, MeanRateOfWhatIsShown) {
    IbiAvgA.Fill(0.75F);
    for (Long second = 170; second <= 400; ++second)
        IbiAvgA[second] = 0.5F;
    IbiAvgB.Fill(0);
    const std::string rest = " " + LanguageText(TextBpm);
    HistorySpanSeconds = 20;
    Draw({900, 400});
    EXPECT_EQ(labBPMA.Caption, "<155>: 120" + rest);
    HistorySpanSeconds = 60; // 53 seconds are drawn, 31 of 0.5 s and 22 of 0.75 s: 99.4
    Draw({900, 400});
    EXPECT_EQ(PointsOf({900, 400}), 54U);
    EXPECT_EQ(labBPMA.Caption, "<155>: 99" + rest);
    labBPMB.Caption = "before";
    RedrawHistory();
    EXPECT_EQ(labBPMB.Caption, "before"); // no interval at all
    HistoryStyle = 1;
    labBPMA.Caption = "before";
    RedrawHistory();
    EXPECT_EQ(labBPMA.Caption, "before");
}

} // namespace
} // namespace pulselark
