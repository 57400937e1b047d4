#include "analysis/SpectrumPanel.h"

#include "analysis/ColourSchemes.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"

#include <cmath>

namespace pulselark {
namespace {

// "00.0**" is 36 units wide, "00.0*" 30, " Hz**" 30, "00**" 24.
class SpectrumPanel : public PanelTest {
protected:
    SpectrumPanel() {
        RecordedSeconds = 60;
        for (int slot = 1; slot <= RingSlots; ++slot) {
            for (int bin = 1; bin <= SpectrumBins; ++bin) {
                SpectrumAvgA[slot][bin] = static_cast<float>(100 * slot + 37 * bin % 9000);
                SpectrumAvgB[slot][bin] = static_cast<float>(7000 - 100 * slot);
            }
        }
        SpectrumSlotA = 3;
        SpectrumSlotB = 20;
    }

    void Draw(const Size& size) {
        Place(size, picSA, picSB);
        OpenSpectrumPanel(false);
        A->Forget();
        B->Forget();
        DrawSpectrumA();
        DrawSpectrumB();
    }

    static Axes AxesFor(const Size& size, const CaptionLabel& caption) {
        const auto [w, h] = size;
        Axes axes;
        const double perHz = (w - 36 - 30) / SpectrumMaxHz;
        const int hz = StepOf(24, perHz, true);
        for (int value = hz; value <= SpectrumMaxHz; value += hz) {
            const std::string number = std::to_string(value);
            const double x = 36 + value * perHz;
            axes.Vertical(x, h);
            axes.Texts.push_back(
                {x - Wide(number) / 1.4, TH, value + hz > SpectrumMaxHz ? number + " Hz" : number});
        }
        const double n = std::nearbyint(48000 / SpectrumGain);
        const int step = StepOf(12, h / n);
        for (int value = 0; value <= 400; value += step) {
            const double y = value * h / n + TH;
            const bool thick = (value % 10 == 0 && step < 10) || (value % 100 == 0 && step < 100);
            axes.Lines.push_back({y > h - 16 ? 36 + caption.Width + 6 : 36, y, w, y, thick ? 2 : 1});
            const std::string label =
                (value < 10 ? "" : std::to_string(value / 10)) + "." + std::to_string(value % 10);
            if (value > 0 && y + 6 <= h)
                axes.Texts.push_back({30 - Wide(label), y + 6, label});
        }
        return axes;
    }

    static PanelPoint PointOf(const Size& size, const SpectrumRing& ring, int slot, int age, int i) {
        const double perHz = (size.W - 66) / SpectrumMaxHz;
        const double scale = size.H * SpectrumGain / 3500000;
        return {36 + i * perHz / 8, scale * (1.0 * age * SpectrumStep + ring[slot][i + 1]) + TH + 2};
    }
};

TEST_F(SpectrumPanel, AxesAtEverySizeRangeAndGain) {
    for (const Size& size : Sizes) {
        for (const int range : {64, 37, 10}) {
            for (const double s : {100.0, 80.0, 130.0, 160.0}) {
                SCOPED_TRACE(testing::Message() << size.W << " wide, " << range << " Hz, s " << s);
                SpectrumMaxHz = static_cast<Integer>(range);
                SpectrumGain = Gain(s);
                Draw(size);
                EXPECT_EQ(labLeftS.Left, 36);
                EXPECT_EQ(labLeftS.Width, Wide(labLeftS.Caption) + 8);
                ExpectAxes(*A, AxesFor(size, labLeftS));
                ExpectAxes(*B, AxesFor(size, labRightS));
                ExpectNoCollision(*A);
            }
        }
    }
    // By hand: 834 units for 64 Hz are 13.03 each; 400 units for 480 are 0.833 each.
    SpectrumMaxHz = 64;
    SpectrumGain = 100;
    Draw({900, 400});
    ASSERT_EQ(A->Texts.size(), 32U + 20U);
    EXPECT_EQ(A->Texts[31].Value + " " + A->Texts[32].Value, "64 Hz 2.0");
    EXPECT_NEAR(A->Texts[31].X, 861.4, 0.1);
    EXPECT_NEAR(A->Texts[32].Y, 34.7, 0.1);
}

TEST_F(SpectrumPanel, WaterfallFromTheOldestToTheNewest) {
    const Image& ramp = picWGradient(0);
    for (const Size& size : Sizes) {
        Draw(size);
        ASSERT_EQ(A->Traces.size(), 7U);
        ASSERT_EQ(B->Traces.size(), 7U);
        for (int layer = 0; layer <= 6; ++layer) {
            const int age = 6 - layer;
            const Colour ink = ramp.PixelAt(static_cast<int>(std::lround(layer / 6.1 * 511)), 4);
            const int slot = age <= 2 ? 3 - age : 23 - age; // the ring goes on at 20
            const auto index = static_cast<std::size_t>(layer);
            ExpectTrace(A->Traces[index], 512, ink, 2,
                        [&](int i) { return PointOf(size, SpectrumAvgA, slot, age, i); });
            ExpectTrace(B->Traces[index], 512, ink, 2,
                        [&](int i) { return PointOf(size, SpectrumAvgB, 20 - age, age, i); });
        }
        EXPECT_TRUE(A->Fills.empty());
    }
}

TEST_F(SpectrumPanel, ALoneCurveHasAShadow) {
    const Size size{300, 150};
    SpectrumDepth = 0;
    ColourSchemeIndex = 1;
    Draw(size);
    ASSERT_EQ(A->Traces.size(), 2U);
    const auto at = [&](int i) { return PointOf(size, SpectrumAvgA, 3, 0, i); };
    ExpectTrace(A->Traces[0], 512, HalfWay(0x323ABF, 0xFFFFFF), 3, at);
    ExpectTrace(A->Traces[1], 512, 0x323ABF, 2, at); // right end of the ramp
    SpectrumDepth = 1;
    Draw(size);
    EXPECT_EQ(A->Traces.size(), 2U);
    EXPECT_EQ(A->Traces[0].DrawWidth, 2);
}

TEST_F(SpectrumPanel, TheNewestCurveIsFilled) {
    const Size size{900, 400};
    SolidGraphs = On;
    SpectrumDepth = 2;
    Draw(size);
    const Colour mix = HalfWay(0xFA7AB3, 0x2B0F0A); // fill and background of the first scheme
    ASSERT_EQ(A->Traces.size(), 3U);
    for (const auto& trace : A->Traces) {
        EXPECT_EQ(trace.Ink, mix);
        EXPECT_EQ(trace.DrawWidth, 1);
    }
    EXPECT_EQ(A->Fills, (std::vector<RecordingSurface::Fill>{{450, 387, mix, 0xFA7AB3}}));
    EXPECT_EQ(A->Order.substr(A->Order.find('c')), "ccclllflll");
    const double y1 = A->Traces[2].Points.front().Y;
    const auto& last = A->Traces[2].Points.back();
    const std::vector<RecordingSurface::Segment> closing(A->Segments.end() - 6, A->Segments.end());
    const std::vector<RecordingSurface::Segment> wanted{
        {36, y1, 36, 12, mix},      {last.X, last.Y, last.X, 12, mix},
        {36, 12, last.X, 12, mix},  {36, 12, 900, 12, 0x893523},
        {36, y1, 36, 12, 0xFA7AB3}, {last.X, last.Y, last.X, 12, 0xFA7AB3}};
    EXPECT_EQ(closing, wanted);
    RedrawSpectrum(); // for a passing moment: nothing is filled
    EXPECT_EQ(A->Traces.size(), 6U);
    EXPECT_EQ(A->Fills.size(), 1U);
}

TEST_F(SpectrumPanel, CurvesNeedTwoRecordedSeconds) {
    RecordedSeconds = 1;
    Draw({300, 150});
    EXPECT_TRUE(A->Traces.empty());
    EXPECT_FALSE(A->Texts.empty());
    RecordedSeconds = 2;
    Draw({300, 150});
    EXPECT_EQ(A->Traces.size(), 7U);
}

TEST_F(SpectrumPanel, Knobs) {
    EXPECT_EQ(SpectrumDepth, 6); // before any settings
    EXPECT_EQ(SpectrumDepthFromKnob(SpectrumDepthKnob), SpectrumDepth);
    EXPECT_EQ(SpectrumDepthFromKnob(0), 0);
    EXPECT_EQ(SpectrumDepthFromKnob(500), 10); // 9.5
    EXPECT_EQ(SpectrumDepthFromKnob(1000), 19);
    EXPECT_EQ(SpectrumStepFromKnob(0), 375);
    EXPECT_EQ(SpectrumStepFromKnob(500), 1309); // 375 e^1.25
    EXPECT_EQ(SpectrumStepFromKnob(2000), 4568);
}

} // namespace
} // namespace pulselark
