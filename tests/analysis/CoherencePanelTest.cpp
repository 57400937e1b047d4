#include "analysis/CoherencePanel.h"

#include "analysis/ColourSchemes.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"

#include <cmath>

namespace pulselark {
namespace {

// "100%**" is 36 units wide, "100%" 24, "100" 18.
class CoherencePanel : public PanelTest {
protected:
    CoherencePanel() {
        RecordedSeconds = SessionSeconds = 60;
        AnalysisSecond = 20;
        for (int slot = 1; slot <= RingSlots; ++slot) {
            for (int point = 1; point <= CoherenceCurvePoints; ++point) {
                CepstrumA[slot][point] = static_cast<float>(0.001 * slot + 0.0003 * (point % 60));
                CepstrumB[slot][point] = static_cast<float>(0.09 - 0.001 * slot);
            }
        }
        CepstrumSlotA = 5;
        CepstrumSlotB = 19;
    }

    void Draw(const Size& size) {
        Place(size, picGCA, picGCB);
        OpenCoherencePanel(false);
        A->Forget();
        B->Forget();
        DrawCoherenceA();
        DrawCoherenceB();
    }

    static Axes AxesFor(const Size& size, const CaptionLabel& caption, const std::string& unit, int unitAt) {
        const auto [w, h] = size;
        Axes axes;
        for (int n = 1; n <= 18; ++n) {
            const double x = 36 + n * (w - 36) / 20;
            axes.Vertical(x, h);
            if (w < 240 ? n % 4 != 0 : w < 440 && n % 2 != 0)
                continue;
            const std::string number = std::to_string(n / 10) + "." + std::to_string(n % 10);
            const bool whole = n == unitAt && x - 9 + Wide(number + unit) <= w;
            axes.Texts.push_back({x - 9, TH, whole ? number + unit : number});
            if (n == unitAt && !whole) // the edge would cut it
                axes.Texts.push_back({w - Wide(unit), 2 * TH, unit});
        }
        const double count = std::nearbyint(12000 / CoherenceGain);
        const int step = StepOf(12, h / count);
        for (int value = step; value <= 100; value += step) {
            const double y = value * h / count + TH;
            axes.Lines.push_back(
                {y > h - 16 ? 36 + caption.Width + 6 : 36, y, w, y, value % 10 == 0 && step < 10 ? 2 : 1});
            const std::string number = std::to_string(value);
            const bool last = value == 100 || (value + step) * h / count + 18 > h;
            if (y + 6 <= h)
                axes.Texts.push_back({18 - Wide(number), y + 6, last ? number + "%" : number});
        }
        axes.Lines.push_back({36, TH, w, TH, 1});
        return axes;
    }

    // Point 12 of the curve is drawn first.
    static PanelPoint PointOf(const Size& size, const CepstrumRing& ring, int slot, int age, int i) {
        const double scale = size.H * CoherenceGain / 13.3;
        return {36 + (size.W - 36) * 4 / 512 * (i + 11),
                scale * (age * CoherenceStep + ring[slot][i + 12]) + TH + 2};
    }

    std::vector<RecordingSurface::Text> PeakTexts() {
        Draw({900, 400});
        std::vector<RecordingSurface::Text> texts;
        for (const auto& text : A->Texts) {
            if (text.Font == "Arial")
                texts.push_back(text);
        }
        return texts;
    }
};

TEST_F(CoherencePanel, AxesAtEverySizeAndGain) {
    const Size edges[] = {{900, 400}, {440, 300}, {439, 200}, {240, 150}, {239, 150}, {200, 90}};
    for (const Size& size : edges) {
        for (const double s : {100.0, 85.0, 130.0}) {
            SCOPED_TRACE(testing::Message() << size.W << " wide, s " << s);
            CoherenceGain = Gain(s);
            Draw(size);
            ExpectAxes(*A, AxesFor(size, labLeftGC, "/Hz", size.W < 240 ? 16 : 18));
            ExpectAxes(*B, AxesFor(size, labRightGC, " / Hz", 18));
            ExpectNoCollision(*A);
            ExpectNoCollision(*B);
        }
    }
    // By hand: 30 % in 150 units, so 29 % would rise above the panel, and 26 % does not.
    CoherenceGain = Gain(130);
    Draw({300, 150});
    EXPECT_EQ(A->Texts.back().Value, "25%");
    CoherenceGain = 100;
    Draw({900, 400});
    EXPECT_EQ(A->Texts[9].Value + " " + A->Texts[17].Value, "1.0 1.8/Hz");
    EXPECT_NEAR(A->Texts[9].X, 459, 0.1); // one second, in the middle of the plot
    EXPECT_EQ(A->Texts[37].Value, "100%");
    EXPECT_NEAR(A->Texts[37].Y, 351.3, 0.1);
}

TEST_F(CoherencePanel, WaterfallFromTheOldestToTheNewest) {
    const Image& ramp = picWGradient(0);
    for (const Size& size : Sizes) {
        Draw(size);
        ASSERT_EQ(A->Traces.size(), 7U);
        for (int layer = 0; layer <= 6; ++layer) {
            const int age = 6 - layer;
            const Colour ink = ramp.PixelAt(static_cast<int>(std::lround(layer / 6.1 * 511)), 4);
            const auto index = static_cast<std::size_t>(layer);
            ExpectTrace(A->Traces[index], 107, ink, 2, [&](int i) {
                return PointOf(size, CepstrumA, age < 5 ? 5 - age : 25 - age, age, i);
            });
            ExpectTrace(B->Traces[index], 107, ink, 2,
                        [&](int i) { return PointOf(size, CepstrumB, 19 - age, age, i); });
        }
    }
}

TEST_F(CoherencePanel, TheNewestCurveIsFilled) {
    SolidGraphs = On;
    ColourSchemeIndex = 4;
    CoherenceDepth = 0;
    Draw({900, 400});
    const Colour mix = HalfWay(0x3888E3, 0x151212);
    ASSERT_EQ(A->Traces.size(), 1U); // no shadow
    EXPECT_EQ(A->Traces[0].Ink, mix);
    EXPECT_EQ(A->Fills, (std::vector<RecordingSurface::Fill>{{450, 387, mix, 0x3888E3}}));
    // The closing baseline starts 12 units further left than the curve.
    const double start = A->Traces[0].Points.front().X - 12;
    const auto& closing = A->Segments[A->Segments.size() - 4];
    EXPECT_EQ(closing, (RecordingSurface::Segment{start, 12, 36 + 6.75 * 117, 12, mix}));
    SolidGraphs = Off;
    Draw({900, 400});
    ASSERT_EQ(A->Traces.size(), 2U); // a lone curve over its shadow
    EXPECT_EQ(A->Traces[0].DrawWidth * 10 + A->Traces[1].DrawWidth, 31);
}

TEST_F(CoherencePanel, TheRateIsPrintedAtItsPeak) {
    PeakIndexA = 48;
    CoherenceA[21] = 0.0665F;
    const auto texts = PeakTexts();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].Value, "80 BPMc");
    EXPECT_EQ(texts[0].X, 48 * 900 / 128.0 + 12);
    EXPECT_NEAR(texts[0].Y, 200 + 18, 0.1);
    EXPECT_EQ(texts[0].Ink, 0xB5EB81U);
    const struct {
        Integer K;
        std::string Shown;
    } peaks[] = {{0, ""},          {25, ""},  {26, "148 BPMc"}, {101, "38 BPMc"},
                 {102, "38 BPMc"}, {103, ""}, {11, ""}};
    for (const auto& [k, shown] : peaks) { // 3840 / 25 = 154, / 103 = 37.3
        PeakIndexA = k;
        const auto found = PeakTexts();
        EXPECT_EQ(found.empty() ? "" : found[0].Value, shown) << k;
    }
    PeakIndexA = 48;
    ShowBpmCoherence = Off;
    EXPECT_TRUE(PeakTexts().empty());
}

TEST_F(CoherencePanel, ClearedRingsAreFlat) {
    Draw({300, 150});
    A->Forget();
    ClearCoherenceRings();
    ASSERT_EQ(A->Traces.size(), 7U);
    EXPECT_EQ(A->Traces[6].Points[50].Y, 14);
    EXPECT_EQ(CepstrumA, CepstrumRing{});
    EXPECT_GT(CepstrumB[19][20], 0);
    EXPECT_EQ(CoherenceDepthFromKnob(1000), 19);
    EXPECT_EQ(CoherenceDepthFromKnob(CoherenceDepthKnob), CoherenceDepth); // before any settings too
    EXPECT_DOUBLE_EQ(CoherenceStepFromKnob(0), 0.0012);
    EXPECT_NEAR(CoherenceStepFromKnob(1000), 0.014619, 1e-6);
}

} // namespace
} // namespace pulselark
