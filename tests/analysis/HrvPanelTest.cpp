#include "analysis/HrvPanel.h"

#include "analysis/ColourSchemes.h"
#include "analysis/HRV.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"

#include <cmath>

namespace pulselark {
namespace {

// "1000**" is 36 units wide, "1000" 24, "1000** Hz**" 66.
class HrvPanel : public PanelTest {
protected:
    HrvPanel() {
        AnalysisSecond = 300;
        for (int bin = 1; bin <= HrvBins; ++bin) {
            HrvPowerA[bin] = static_cast<float>(bin % 23);
            HrvPowerB[bin] = static_cast<float>(5 + bin % 7);
        }
        picHRVPowerA = &BarsA;
        picHRVPowerB = &BarsB;
    }

    void Draw(const Size& size) {
        Place(size, picHRVA, picHRVB);
        OpenHrvPanel(false);
        A->Forget();
        B->Forget();
        DrawHrvA();
        DrawHrvB();
    }

    static Axes AxesFor(const Size& size, const CaptionLabel& caption, bool bands) {
        const auto [w, h] = size;
        Axes axes;
        for (int n = 0; n <= 5; ++n) {
            const double x = 36 + n * (w - 66) / 5;
            axes.Vertical(x, h);
            axes.Texts.push_back({x - 18 / 1.6, TH, "0." + std::to_string(n) + (n == 5 ? " Hz" : "")});
        }
        const double count = std::nearbyint(12000 / HrvGain);
        const int step = StepOf(12, h / count);
        for (int value = 0; value <= 50; value += step) {
            const double y = value * h / count + TH;
            axes.Lines.push_back(
                {y > h - 16 ? 36 + caption.Width + 6 : 36, y, w, y, value % 10 == 0 && step < 10 ? 2 : 1});
            const std::string label = std::to_string(value * 100);
            if (value > 0 && y + 6 <= h)
                axes.Texts.push_back({24 - Wide(label), y + 6, label});
        }
        if (bands)
            axes.Lines.push_back({36, TH, w, TH, 1});
        return axes;
    }

    RecordingSurface BarsA{20, 80}, BarsB{20, 80};
};

constexpr struct {
    int First, Last;
    Colour Ink;
} Bands[] = {{2, 10, 0x3A43DB}, {11, 38, 0x0FB41E}, {39, 127, 0xD47624}};

TEST_F(HrvPanel, AxesAtEverySizeAndGain) {
    for (const Size& size : Sizes) {
        for (const double s : {100.0, 115.0, 160.0}) {
            for (const Long second : {10, 300}) {
                SCOPED_TRACE(testing::Message() << size.W << " wide, s " << s << " second " << second);
                HrvGain = Gain(s);
                AnalysisSecond = second;
                Draw(size);
                ExpectAxes(*A, AxesFor(size, labLeftHRV, second > 255));
                ExpectAxes(*B, AxesFor(size, labRightHRV, second > 255));
                ExpectNoCollision(*A);
            }
        }
    }
    HrvGain = 100;
    Draw({900, 400}); // 120 in 400 units, a step of 5
    EXPECT_EQ(A->Texts[5].Value, "0.5 Hz");
    EXPECT_NEAR(A->Texts[5].X, 870 - 11.25, 0.1);
    EXPECT_EQ(A->Texts.back().Value, "5000");
    EXPECT_NEAR(A->Texts.back().Y, 184.7, 0.1);
}

TEST_F(HrvPanel, ThreeBandsEachWithItsShadow) {
    for (const Size& size : Sizes) {
        HrvGain = Gain(105);
        Draw(size);
        for (const bool channelB : {false, true}) {
            const auto& traces = channelB ? B->Traces : A->Traces;
            const auto& power = channelB ? HrvPowerB : HrvPowerA;
            ASSERT_EQ(traces.size(), 6U);
            for (std::size_t band = 0; band < 3; ++band) {
                const auto [first, last, ink] = Bands[band];
                const auto count = static_cast<std::size_t>(last) - static_cast<std::size_t>(first) + 2;
                const auto at = [&, first = first](int i) {
                    return PanelPoint{36 + (first + i - 1) * (size.W - 66) / 128,
                                      size.H * HrvGain / 20000 * power[first + i] + TH + 2};
                };
                ExpectTrace(traces[2 * band], count, HalfWay(ink, 0x2B0F0A), 3, at);
                ExpectTrace(traces[2 * band + 1], count, ink, 1, at);
            }
        }
    }
    EXPECT_TRUE(A->Fills.empty());
}

// A power of 200 stands at the top of the scale, 12000, with the default gain.
TEST_F(HrvPanel, PowerAndAxisAgree) {
    HrvPowerA[20] = 50;
    Draw({900, 400});
    const double y = A->Traces[3].Points[9].Y;
    EXPECT_NEAR(y - TH - 2, 100, 0.1); // 3000 of 12000
    const auto& lines = A->Segments;
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                            [](const auto& line) { return std::abs(line.Y1 - TH - 100) < 0.1; }));
}

TEST_F(HrvPanel, BandsAreFilled) {
    SolidGraphs = On;
    Draw({194, 90}); // a unit per bin
    ASSERT_EQ(A->Traces.size(), 3U);
    ASSERT_EQ(A->Fills.size(), 3U);
    const int columns[] = {42, 60, 119}; // 36 + (first + last) / 2, ties to even
    for (std::size_t band = 0; band < 3; ++band) {
        const auto [first, last, ink] = Bands[band];
        const Colour mix = HalfWay(ink, 0x2B0F0A);
        EXPECT_EQ(A->Traces[band].Ink, mix);
        EXPECT_EQ(A->Traces[band].DrawWidth, 1);
        EXPECT_EQ(A->Fills[band], (RecordingSurface::Fill{columns[band], 77, mix, ink}));
        const std::size_t at = A->Segments.size() - 1 - 6 * (3 - band);
        const double left = 35.0 + first;
        const double right = 36.0 + last;
        EXPECT_EQ(A->Segments[at + 2], (RecordingSurface::Segment{left, 12, right, 12, mix}));
        EXPECT_EQ(A->Segments[at + 3], (RecordingSurface::Segment{36, 12, 194, 12, 0x893523}));
        EXPECT_EQ(A->Segments[at + 5].Ink, ink);
    }
    EXPECT_EQ(A->Order.substr(A->Order.find('c')), "clllflllclllflllclllflll"
                                                   "l");
    RedrawHrv();
    EXPECT_EQ(A->Fills.size(), 3U);
    EXPECT_EQ(A->Traces.size(), 6U);
}

TEST_F(HrvPanel, DataAreMissingUpToSecond255) {
    const struct {
        Long Second;
        bool Missing, Bars;
    } cases[] = {{255, true, false}, {256, false, false}, {257, false, true}};
    timReplay.Enabled = true;
    for (const auto& [second, missing, bars] : cases) {
        AnalysisSecond = second;
        labHRVNoDataA.Caption = "before";
        BarsA.Forget();
        Draw({300, 150});
        CalcHrvA();
        EXPECT_EQ(labHRVNoDataA.Visible, missing) << second;
        EXPECT_EQ(labHRVNoDataA.Caption, missing ? "<156>00:01" : "");
        EXPECT_EQ(A->Traces.empty(), missing);
        EXPECT_EQ(BarsA.Calls.back(), 'C');
        EXPECT_EQ(BarsA.Boxes.size(), bars ? 2U : 0U);
    }
    AnalysisSecond = 16;
    DrawHrvB();
    EXPECT_EQ(labHRVNoDataB.Caption, "<156>04:00");
    timReplay.Enabled = false; // at rest the label stays as it was
    AnalysisSecond = 17;
    DrawHrvB();
    EXPECT_EQ(labHRVNoDataB.Caption, "<156>04:00");
    EXPECT_FALSE(labHRVNoDataA.Visible);
    DrawHrvA();
    EXPECT_FALSE(labHRVNoDataA.Visible);
}

TEST_F(HrvPanel, BarsStandOnEachOther) {
    HrvLfB = 70;   // half of the square root of 280
    HrvHfB = 17.5; // a quarter
    DrawHrvBarsB();
    using Box = RecordingSurface::Box;
    EXPECT_EQ(BarsB.Boxes, (std::vector<Box>{{0, 0, 20, 40, 0x10C521}, {0, 40, 20, 60, 0xFF8E2B}}));
    HrvLfB = 280 * 4; // runs out of the panel
    BarsB.Forget();
    DrawHrvBarsB();
    EXPECT_EQ(BarsB.Boxes[0].Y2, 160);
}

} // namespace
} // namespace pulselark
