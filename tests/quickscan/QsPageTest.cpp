#include "quickscan/QsPage.h"

#include "analysis/CoherenceBins.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cmath>
#include <numbers>

namespace pulselark {
namespace {

constexpr Colour Grey = MakeColour(200, 200, 200);
constexpr Colour Red = MakeColour(255, 0, 0);

class QsPage : public SessionTest {
protected:
    QsPage() {
        picQS = &Page;
        QsSmoothing = 0;
        MakeSession(300);
        CoherenceA.Fill(0.055F);
        QuickScanResultShown = On;
        SessionName = "folder/file.hti";
    }
    // The text whose value is this, or begins with it.
    const RecordingSurface::Text* Find(const std::string& start) const {
        for (const auto& text : Page.Texts) {
            if (text.Value.starts_with(start))
                return &text;
        }
        return nullptr;
    }
    enum Side { Left, Centre, Right };
    // A text stands at x percent from the left; its upper edge, or with Middle its middle, at y percent from
    // the top.
    struct Where {
        double X, Y;
        Side Stands = Left;
        bool Middle = false;
        int Weight = 400;
    };
    void ExpectText(const std::string& value, const Where& where) {
        bool found = false;
        for (const auto& text : Page.Texts) {
            const double width = text.Height / 2 * static_cast<double>(text.Value.size());
            const double x = text.X + width * static_cast<int>(where.Stands) / 2;
            const double y = Page.Height() - text.Y + (where.Middle ? text.Height / 2 : 0);
            found = found || (text.Value == value && std::abs(x - where.X / 100 * Page.Width()) < 0.5 &&
                              std::abs(y - where.Y / 100 * Page.Height()) < 0.5 &&
                              text.Weight == where.Weight && text.Ink == MakeColour(100, 100, 100));
        }
        EXPECT_TRUE(found) << "no \"" << value << "\" at " << where.X << ", " << where.Y;
    }
    std::vector<RecordingSurface::Shape> Kind(char kind) const {
        std::vector<RecordingSurface::Shape> shapes;
        std::copy_if(Page.Shapes.begin(), Page.Shapes.end(), std::back_inserter(shapes),
                     [kind](const auto& shape) { return shape.Kind == kind; });
        return shapes;
    }
    static double PercentX(double x) { return x / 10; }
    static double PercentY(double y) { return 100 - y / 14.14; }

    RecordingSurface Page{1000, 1414};
};

TEST_F(QsPage, TextsStandAtTheirPercentages) {
    OpenQuickScanPanel();
    EXPECT_NEAR(Find("<184>")->Height, 15.554, 1e-9);
    ExpectText("<184><181>", {15, 2.5, Left, false, 700});
    ExpectText("<185>file.hti", {15, 4});
    ExpectText("<186><187>21/11/2026", {15, 5.5});
    ExpectText("<188>", {15, 12, Left, false, 500});
    ExpectText("<189>", {15, 37, Left, false, 500});
    ExpectText("<190>", {15, 62, Left, false, 500});
    ExpectText("<191>", {57, 62, Left, false, 500});
    for (int i = 1; i <= 5; ++i)
        ExpectText(std::to_string(20 * i), {14, 55 - 3.0 * i, Right, true});
    for (int i = 1; i <= 4; ++i)
        ExpectText(std::to_string(25 * i), {14.5, 30 - 3.0 * i, Right, true});
    ExpectText("125  ms^2", {14.5, 15, Right, true});
    const char* hertz[] = {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5 Hz"};
    for (int i = 0; i <= 5; ++i)
        ExpectText(hertz[i], {15 + 14.0 * i, 30.4, Centre});
    ExpectText("0", {15, 55.4, Centre});
    ExpectText("05:00", {85, 55.4, Right});
    ExpectText("100", {15 + 28.284, 85.4, Centre});
    ExpectText("0.5", {14.5, 75, Right, true});
    for (int i = 0; i <= 5; ++i)
        ExpectText(std::to_string(20 * i), {56.5, 85 - 20 * 20.0 * i / 110, Right, true});
    ExpectText("<197>50", {85, 37, Right, false, 500});
    ExpectText("80 BMP", {83.7, 18.7, Right, false, 700});
    QuickScanResultShown = Off;
    Page.Forget();
    OpenQuickScanPanel();
    ExpectText("<184><183>", {15, 2.5, Left, false, 700});
    EXPECT_EQ(Find("<197>"), nullptr);
}

TEST_F(QsPage, OptionsDecideWhatIsDrawn) {
    const struct {
        bool Pie, Bands;
        double Left, Right; // of the box
    } cases[] = {{true, true, 56.8, 86.8}, {false, true, 68.6, 86.8}, {true, false, 72.1, 83.9}};
    for (const auto& c : cases) {
        QsShowPie = ToBoolean(c.Pie);
        QsShowBands = ToBoolean(c.Bands);
        Page.Forget();
        OpenQuickScanPanel();
        const auto boxes = Kind('x');
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_NEAR(PercentX(boxes[0].Points[0].X), c.Left, 0.05);
        EXPECT_NEAR(PercentX(boxes[0].Points[1].X), c.Right, 0.05);
        EXPECT_NEAR(PercentY(boxes[0].Points[1].Y), 11.4, 0.05);
        EXPECT_NEAR(PercentY(boxes[0].Points[0].Y), 17.6, 0.05);
        EXPECT_EQ(boxes[0].Fill, MakeColour(226, 222, 219));
        EXPECT_EQ(Kind('v').size(), c.Pie ? 2U : 0U);
        EXPECT_EQ(Find("<194>: ") != nullptr, c.Bands);
    }
    QsShowPie = QsShowBands = QsShowReference = QsShowBpm = Off;
    const std::size_t strokes = Kind('s').size();
    Page.Forget();
    OpenQuickScanPanel();
    EXPECT_TRUE(Kind('x').empty());
    EXPECT_EQ(Kind('s').size(), strokes - 1); // the reference curve
    EXPECT_EQ(Find("80 BMP"), nullptr);
}

TEST_F(QsPage, OnPaperBoxesAreWhiteAndThePanelIsLeftAlone) {
    RecordingSurface paper(707, 1000);
    QsSmoothing = 4;
    QsDrawOnPaper(paper);
    EXPECT_TRUE(Page.Untouched());
    EXPECT_EQ(std::count(paper.Order.begin(), paper.Order.end(), 'x'), 2); // the statistics and the inset
    for (const auto& shape : paper.Shapes) {
        if (shape.Kind == 'x') {
            EXPECT_EQ(shape.Fill, MakeColour(255, 255, 255));
        }
    }
}

TEST_F(QsPage, AMissingChannelLeavesPaperAndPanelEmptyOfData) {
    RecordingSurface paper(707, 1000);
    QuickScanFresh = ChannelBPresent = Off;
    OpenQuickScanPanel();
    QsDrawOnPaper(paper);
    for (const RecordingSurface* surface : {&Page, &paper}) {
        EXPECT_EQ(surface->Order.find_first_of("gvox"), std::string::npos); // bars, gauge, pie, boxes
        EXPECT_TRUE(std::none_of(surface->Texts.begin(), surface->Texts.end(),
                                 [](const auto& text) { return text.Value.starts_with("<197>"); }));
        EXPECT_TRUE(std::any_of(surface->Texts.begin(), surface->Texts.end(),
                                [](const auto& text) { return text.Value == "<189>"; }));
    }
}

TEST_F(QsPage, TheCurveOfCoherenceRunsUnderTheTexts) {
    CoherenceA.Fill(0.33F); // up to the title
    QsDrawCoherence(CoherenceA);
    const Colour ink = Kind('s').at(0).Line.Ink;
    Page.Forget();
    OpenQuickScanPanel();
    const auto strokes = Kind('s');
    const auto curve =
        std::find_if(strokes.begin(), strokes.end(), [ink](const auto& s) { return s.Line.Ink == ink; });
    ASSERT_NE(curve, strokes.end());
    std::size_t at = std::string::npos; // of its letter
    for (auto s = strokes.begin(); s <= curve; ++s)
        at = Page.Order.find('s', at + 1);
    const auto before =
        std::count(Page.Order.begin(), Page.Order.begin() + static_cast<std::ptrdiff_t>(at), 't');
    for (const char* text : {"<184>", "<185>", "<188>", "<189>", "<197>", "0.2", "80 BMP"}) {
        const RecordingSurface::Text* found = Find(text);
        ASSERT_NE(found, nullptr) << text;
        EXPECT_GE(found - Page.Texts.data(), before) << text;
        const double right = found->X + found->Height / 2 * static_cast<double>(found->Value.size());
        EXPECT_TRUE(std::any_of(Page.Boxes.begin(), Page.Boxes.end(), [&](const auto& plate) {
            return plate.X1 < found->X && plate.X2 > right && std::abs(plate.Y2 - found->Y) < 1e-6 &&
                   std::abs(plate.Y2 - plate.Y1 - found->Height) < 1e-6;
        })) << text;
        EXPECT_EQ(std::count_if(Page.Texts.begin(), Page.Texts.end(),
                                [&](const auto& t) { return t.Value == found->Value; }),
                  1)
            << text;
    }
}

TEST_F(QsPage, ThePieSplitsByTheRatio) {
    constexpr double Pi = std::numbers::pi;
    const struct {
        double Ratio, Start, End; // of the low band's part, counterclockwise
    } cases[] = {{0.5, Pi / 3, Pi}, {1, 2 * Pi, 3 * Pi}, {3, 1.5 * Pi, 3 * Pi}, {0, Pi, 3 * Pi}};
    for (const auto& c : cases) {
        Page.Forget();
        ScanPowerRatioA = c.Ratio;
        QsDrawBalancePie();
        const auto parts = Kind('v');
        ASSERT_EQ(parts.size(), 2U);
        const CircleArc& low = parts[0].Circle;
        const CircleArc& high = parts[1].Circle;
        EXPECT_NEAR(low.End - low.Start, 2 * Pi * c.Ratio / (1 + c.Ratio), 1e-6) << c.Ratio;
        EXPECT_NEAR(high.End - high.Start, 2 * Pi / (1 + c.Ratio), 1e-6) << c.Ratio;
        EXPECT_NEAR(std::cos(low.End), -1, 1e-9); // both meet on the left
        EXPECT_EQ(parts[0].Fill, MakeColour(200, 237, 200));
        EXPECT_NEAR(PercentX(low.Centre.X), 63.3, 1e-9);
        EXPECT_NEAR(PercentY(low.Centre.Y), 14.6, 1e-9);
        EXPECT_NEAR(low.Radius, 36, 1e-9);
    }
}

TEST_F(QsPage, TheCapIsGreyOnlyBetweenTwoCappedPoints) {
    QsSpectrumSize = 16;
    const double powers[] = {300, 500, 10, 400, 20, 200, 201, 0}; // the cap is at 200
    std::copy(std::begin(powers), std::end(powers), QsSpectrum.begin());
    QsDrawSpectrum();
    const auto lines = Kind('s');
    ASSERT_EQ(lines.size(), 3U);
    const std::size_t points[] = {2, 5, 3}; // the last bin counts as the one before it
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].Line.Ink, i % 2 == 0 ? Grey : Red);
        EXPECT_EQ(lines[i].Points.size(), points[i]);
    }
    EXPECT_NEAR(PercentX(lines[0].Points[0].X), 15, 1e-9);
    EXPECT_NEAR(PercentX(lines[0].Points[1].X), 15 + 70 / 8.0, 1e-9);
    EXPECT_NEAR(PercentY(lines[0].Points[0].Y - 1), 15, 1e-9);
    EXPECT_NEAR(PercentY(lines[1].Points[1].Y - 1), 30 - 0.075 * 10, 1e-9);
}

TEST_F(QsPage, SmoothingTakesTheBinsAroundAndShowsTheRest) {
    QsSpectrumSize = 16;
    QsSpectrum[1] = 90;
    QsSmoothing = 1;
    QsDrawSpectrum();
    const auto lines = Kind('s');
    ASSERT_EQ(lines.size(), 2U); // the curve, and the inset's
    const auto power = [](double y) { return (30 - PercentY(y - 1)) / 0.075; };
    EXPECT_NEAR(power(lines[0].Points[0].Y), 60, 1e-6); // bin 0 counts as bin 1
    EXPECT_NEAR(power(lines[0].Points[1].Y), 30, 1e-6);
    EXPECT_NEAR(power(lines[0].Points[2].Y), 0, 1e-6);
    const auto box = Kind('x')[0];
    EXPECT_NEAR(PercentX(box.Points[0].X), 72.1, 1e-9);
    EXPECT_NEAR(PercentY(box.Points[0].Y), 23.4, 1e-9);
    EXPECT_NEAR(lines[1].Points[0].Y - lines[1].Points[1].Y, 90 * 0.075 * 14.14 / 6.5, 1e-6);
}

TEST_F(QsPage, TheCurveOfCoherenceBeginsAtSecondFourteenAndHasNoCap) {
    CoherenceA.Fill(-0.05F);
    CoherenceA[14] = 0.22F;
    QsDrawCoherence(CoherenceA);
    const auto line = Kind('s').at(0);
    ASSERT_EQ(line.Points.size(), 287U);
    const double above = 2 * 1414 / 1285.0;
    EXPECT_NEAR(PercentX(line.Points[0].X), 15, 1e-6);
    EXPECT_NEAR(PercentX(line.Points[286].X), 85, 1e-6);
    EXPECT_NEAR(PercentY(line.Points[0].Y - above), 55 - 30, 1e-4);
    EXPECT_NEAR(PercentY(line.Points[1].Y - above), 55, 1e-6);
}

TEST_F(QsPage, BarsAreCountedAgainstTheLargestAndSingleCountsAreLeftOut) {
    const Integer counts[] = {0, 1, 2, 8, 4, 0, 0, 0, 0, 0};
    std::copy(std::begin(counts), std::end(counts), CoherenceBins.begin());
    QsDrawHistogram();
    const auto bars = Kind('g');
    ASSERT_EQ(bars.size(), 3U);
    const double heights[] = {5, 20, 10};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(PercentY(bars[i].Points[1].Y), 85 - heights[i], 1e-6);
        const double middle = (bars[i].Points[0].X + bars[i].Points[1].X) / 2;
        EXPECT_NEAR(PercentX(middle), 15 + 2.8284 * (static_cast<double>(i) + 2.5), 1e-3);
    }
}

TEST_F(QsPage, TheScoreIsAWordAtBothEnds) {
    const struct {
        double Score;
        const char* Text;
        double HeldAt;
    } cases[] = {{0, "<192>", 20}, {19, "<192>", 20}, {20, "20", 20}, {89, "89", 89}, {90, "<193>", 90}};
    for (const auto& c : cases) {
        Page.Forget();
        DynamicIndex = c.Score;
        QsDrawScoreGauge();
        ASSERT_EQ(Page.Texts.size(), 10U); // nine times around, once in front
        EXPECT_EQ(Page.Texts.back().Ink, MakeColour(255, 255, 255));
        EXPECT_EQ(Page.Texts.front().Ink, MakeColour(146, 157, 204));
        EXPECT_EQ(Page.Texts.back().Value, c.Text);
        EXPECT_NEAR(Page.Texts.back().Height, 2.5 * 15.554, 1e-6);
        const double size = 10 * c.Score * 0.02 * std::numbers::sqrt2;
        EXPECT_NEAR(PercentY(Page.Texts.back().Y + 1.4 * size), 85 - 20 * c.HeldAt / 110, 0.3);
    }
    const auto hearts = Kind('s');
    const auto& heart = hearts.back();
    double left = 1000;
    double right = 0;
    for (const PanelPoint& point : heart.Points) {
        left = std::min(left, point.X);
        right = std::max(right, point.X);
    }
    EXPECT_NEAR((left + right) / 20, 57 + 20 * std::numbers::sqrt2 / 1.8, 1e-6);
    EXPECT_NEAR(right - left, 2 * 10 * 90 * 0.02 * std::numbers::sqrt2, 0.1);
    EXPECT_EQ(heart.Line.Ink, Red);
}

TEST_F(QsPage, ASmallPanelKeepsItsTextsApartAndReadable) {
    RecordingSurface small(310, 470);
    picQS = &small;
    QsSmoothing = 4;
    OpenQuickScanPanel();
    std::vector<RecordingSurface::Text> texts(small.Texts.begin(), small.Texts.end());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_GE(texts[i].Height, 10);
        if (texts[i].Ink != MakeColour(100, 100, 100))
            continue; // the score is printed over itself
        for (std::size_t k = 0; k < i; ++k) {
            const auto width = [](const auto& text) {
                return text.Height / 2 * static_cast<double>(text.Value.size());
            };
            const bool apart = texts[k].X + width(texts[k]) <= texts[i].X ||
                               texts[i].X + width(texts[i]) <= texts[k].X ||
                               texts[k].Y - texts[k].Height >= texts[i].Y - 1e-9 ||
                               texts[i].Y - texts[i].Height >= texts[k].Y - 1e-9;
            EXPECT_TRUE(apart) << texts[i].Value << " lies on " << texts[k].Value;
        }
    }
}

TEST_F(QsPage, TheSliderFollowsThePointer) {
    OpenQuickScanPanel();
    const double base = 0.7 * 1414;
    const double height = 0.15 * 1414;
    QsPointerMove(500, base + 10);
    EXPECT_TRUE(picSliderAv.Visible);
    QsPointerMove(500, base - 10);
    EXPECT_FALSE(picSliderAv.Visible);
    const struct {
        double Share;
        Integer Smoothing;
    } cases[] = {{0.5, 8}, {0.031, 0}, {0.0320, 1}, {2, 16}, {-1, 0}};
    for (const auto& c : cases) {
        Page.Forget();
        QsSmoothingFromPointer(base + c.Share * height);
        EXPECT_EQ(QsSmoothing, c.Smoothing) << c.Share;
        EXPECT_FALSE(Page.Untouched());
        EXPECT_NEAR(picAvDown.Height, c.Smoothing / 16.0 * height, 1e-6);
        Page.Forget();
        QsSmoothingFromPointer(base + c.Share * height);
        EXPECT_TRUE(Page.Untouched()); // nothing has changed
    }
}

} // namespace
} // namespace pulselark
