#include "platform/qt/QtSurface.h"

#include "analysis/ColourSchemes.h"
#include "platform/qt/QtColour.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace pulselark {
namespace {

constexpr Colour Ground = 0x2B0F0A;
constexpr Colour Red = 0x0000FF;
constexpr Colour Green = 0x00FF00;

class Screen : public testing::Test {
protected:
    void Open(int width, int height, double density, const Image& ground = {1, 1, {Ground}}) {
        Surface.Resize(width, height, density);
        Surface.StretchImage(ground, 0, 0, width, height);
        Surface.StorePicture(Surface);
    }
    // Counts from the upper left corner, in device pixels.
    Colour At(int x, int y) const { return FromQColor(Surface.Picture().pixelColor(x, y)); }
    int Count(Colour colour) const {
        const QImage& picture = Surface.Picture();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += At(x, y) == colour ? 1 : 0;
        }
        return count;
    }

    QtSurface Surface;
};

// Relative luminance and contrast of WCAG 2.1.
double Contrast(Colour a, Colour b) {
    const auto luminance = [](Colour c) {
        const double weights[] = {0.2126, 0.7152, 0.0722};
        double sum = 0;
        for (unsigned i = 0; i < 3; ++i) {
            const double v = ((c >> (8 * i)) & 255U) / 255.0;
            sum += weights[i] * (v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4));
        }
        return sum;
    };
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST_F(Screen, GridLinesLieOnWholeDevicePixels) {
    for (const double density : {1.0, 1.5, 2.0, 3.0}) {
        for (const int width : {1, 2}) {
            for (const double place : {20.0, 20.3, 20.5, 20.7}) {
                Open(60, 40, density);
                Surface.SetDrawWidth(width);
                Surface.Line(place, 0, place, 40, Red);
                const int thick = (density >= 2 ? 2 : 1) * width;
                const int rows = static_cast<int>(40 * density);
                EXPECT_EQ(Count(Red), thick * rows) << density << " " << place;
                EXPECT_EQ(Count(Red) + Count(Ground), 60 * density * rows) << "a mixed pixel";
                Surface.Refresh();
                Surface.Line(5, place, 45, place, Red);
                EXPECT_EQ(Count(Red) + Count(Ground), 60 * density * rows);
                const int column = static_cast<int>(30 * density);
                int high = 0;
                double middle = 0;
                for (int y = 0; y < rows; ++y) {
                    high += At(column, y) == Red ? 1 : 0;
                    middle += At(column, y) == Red ? y + 0.5 : 0;
                }
                ASSERT_EQ(high, thick);
                EXPECT_NEAR(middle / high, (40 - place) * density, 1.01);
            }
        }
    }
}

// How much of each device pixel the curve covers, added up along a section and averaged over the middle of
// the picture: the section is one pixel column for a level curve, a row for a steep one.
double Thickness(const QImage& picture, bool steep) {
    constexpr double Empty = RedOf(Ground);
    const int sections = steep ? picture.height() : picture.width();
    const int first = sections / 3;
    const int beyond = 2 * sections / 3;
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int place = steep ? y : x;
            if (place >= first && place < beyond)
                sum += (picture.pixelColor(x, y).red() - Empty) / (255 - Empty);
        }
    }
    return sum / (beyond - first);
}

TEST_F(Screen, CurvesAreAsThickAsTheirPenInEveryDirection) {
    for (const double density : {1.0, 1.5, 2.0, 3.0}) {
        for (const int width : {1, 2, 3}) {
            for (const double slope : {0.01, 0.3, 1.0, 4.0, 300.0}) {
                SCOPED_TRACE(testing::Message() << density << " " << width << " slope " << slope);
                Open(60, 60, density);
                Surface.SetDrawWidth(width);
                const bool steep = slope > 1;
                const double dx = steep ? 60 / slope : 60;
                const double dy = steep ? 60 : 60 * slope;
                const PanelPoint ends[] = {{30.3 - dx / 2, 30.2 - dy / 2}, {30.3 + dx / 2, 30.2 + dy / 2}};
                Surface.Curve(ends, Red);
                const double cut = std::sqrt(dx * dx + dy * dy) / std::max(dx, dy); // across the section
                EXPECT_NEAR(Thickness(Surface.Picture(), steep) / cut, width * density,
                            0.04 * width * density);
                const QImage whole = Surface.Picture().copy();
                Surface.Refresh(); // in many pieces it is the same curve
                std::vector<PanelPoint> pieces;
                for (int i = 0; i <= 70; ++i)
                    pieces.push_back({ends[0].X + dx * i / 70, ends[0].Y + dy * i / 70});
                Surface.Curve(pieces, Red);
                const QImage& pieced = Surface.Picture();
                int most = 0;
                for (int y = 2; y < whole.height() - 2; ++y) {
                    for (int x = 2; x < whole.width() - 2; ++x)
                        most = std::max(
                            most, std::abs(pieced.pixelColor(x, y).red() - whole.pixelColor(x, y).red()));
                }
                EXPECT_LE(most, 32);
            }
        }
    }
}

TEST_F(Screen, CornersOfACurveAreClosedAndDoNotStickOut) {
    for (const double density : {1.0, 2.0, 3.0}) {
        Open(60, 60, density);
        Surface.SetDrawWidth(3);
        const PanelPoint roof[] = {{10, 10}, {30, 40}, {50, 10}};
        Surface.Curve(roof, Red);
        const auto red = [&](double up) {
            const int row = static_cast<int>((60 - up) * density);
            return RedOf(At(static_cast<int>(30 * density), row));
        };
        EXPECT_GT(red(40.9), 200); // the pen is round
        EXPECT_GT(red(39), 250);
        EXPECT_EQ(red(42.6), RedOf(Ground));
    }
}

TEST_F(Screen, CurvesThatRunFarOutAreCutOff) {
    Open(60, 40, 1);
    Surface.SetDrawWidth(2);
    const double endless = std::numeric_limits<double>::infinity();
    const PanelPoint wild[] = {{-1e6, 20},   {30, 20}, {30, 1e8},      {30, 20},  {1e6, 20},
                               {endless, 3}, {5, NAN}, {1e300, 1e300}, {1e300, 5}};
    Surface.Curve(wild, Red);
    EXPECT_EQ(Count(Red), 2 * 60 + 2 * 19);
}

TEST_F(Screen, TextCanBeReadInEveryScheme) {
    for (int scheme = 0; scheme < ColourSchemeCount; ++scheme) {
        const ColourScheme& colours = ColourSchemes[static_cast<std::size_t>(scheme)];
        for (const Colour fixed : {colours.Text, colours.Caption, 0xE88284U, 0x474AE1U, 0xA46B79U}) {
            Open(60, 40, 1, picModBGSrc(scheme));
            Surface.SetFont("Arial", 14, true);
            Surface.SetForeColour(fixed);
            Surface.Print(10, 30, "III");
            // The strokes are thick enough to show the ink itself: the pixel furthest from the background.
            const Colour ground = picModBGSrc(scheme).PixelAt(32, 128);
            Colour ink = ground;
            for (int y = 10; y < 30; ++y) {
                for (int x = 10; x < 40; ++x) {
                    if (Contrast(At(x, y), ground) > Contrast(ink, ground))
                        ink = At(x, y);
                }
            }
            for (const int row : {0, 128, 255})
                EXPECT_GE(Contrast(ink, picModBGSrc(scheme).PixelAt(32, row)), 4.5 - 1e-9) << scheme;
            const bool readable = Contrast(fixed, ground) > 5; // keeps its colour
            EXPECT_EQ(ink == fixed || !readable, true) << scheme << " " << fixed;
            EXPECT_EQ(scheme == 1 && fixed == 0xE88284U, ink == 0xC36D6FU); // #6F6DC3
            EXPECT_EQ(scheme == 3 && fixed == 0x474AE1U, ink == 0x4042C9U); // #C94240
            Surface.Line(0, 5, 60, 5, fixed);
            EXPECT_EQ(At(30, 35), fixed); // lines always do
        }
    }
}

TEST_F(Screen, AFillStopsAtItsBorder) {
    Open(40, 30, 2);
    for (const double x : {10.0, 30.0})
        Surface.Line(x, 5, x, 25, Red);
    for (const double y : {5.0, 25.0})
        Surface.Line(10, y, 31, y, Red);
    const int border = Count(Red);
    Surface.SetFillColour(Green);
    Surface.FloodFill(20, 15, Red);
    EXPECT_EQ(Count(Red), border);
    EXPECT_EQ(Count(Green), 38 * 38);
    EXPECT_EQ(At(10, 10), Ground);
    Surface.FloodFill(2000, 15, Red); // outside
    Surface.FloodFill(2, 2, Red);
    EXPECT_EQ(Count(Ground), 0);
}

TEST_F(Screen, TheAreaUnderACurveIsFilled) {
    for (const double density : {1.0, 2.0}) {
        Open(80, 60, density);
        std::vector<PanelPoint> hill; // two slopes, one at each end above the baseline
        for (int i = 0; i <= 60; ++i)
            hill.push_back({10.0 + i, 20 + 0.5 * (30 - std::abs(i - 30))});
        Surface.SetDrawWidth(1);
        Surface.Curve(hill, Red);
        Surface.Line(10, 20, 10, 12, Red);
        Surface.Line(70, 20, 70, 12, Red);
        Surface.Line(10, 12, 70, 12, Red);
        Surface.SetFillColour(Green);
        Surface.FloodFill(40, 47, Red);
        for (int x = 13; x < 68; ++x) {
            const double top = 20 + 0.5 * (30 - std::abs(x - 40));
            const int column = static_cast<int>(x * density);
            EXPECT_EQ(At(column, static_cast<int>((60 - top + 3) * density)), Green) << x;
            EXPECT_EQ(At(column, static_cast<int>(46 * density)), Green) << x;
            EXPECT_EQ(At(column, static_cast<int>((60 - top - 3) * density)), Ground) << x;
            EXPECT_EQ(At(column, static_cast<int>(50 * density)), Ground) << x;
        }
    }
}

TEST_F(Screen, ARimKeepsCurvesOffLargeText) {
    Open(120, 40, 1);
    Surface.SetForeColour(Green);
    Surface.FilledBox(0, 0, 120, 40);
    Surface.SetFont("Arial", 14, true);
    Surface.SetForeColour(0xFFFFFF);
    Surface.Print(10, 30, "80 BPMc");
    int letters = 0;
    for (int y = 1; y < 39; ++y) {
        for (int x = 1; x < 119; ++x) {
            if (At(x, y) != 0xFFFFFF)
                continue;
            ++letters;
            for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                EXPECT_NE(At(x + dx, y + dy), Green);
        }
    }
    EXPECT_GT(letters, 100);
    EXPECT_GT(Count(Ground), letters / 2);
    Surface.SetFont("MS Sans Serif", 8, false); // small text has none
    const int rim = Count(Ground);
    Surface.Print(92, 30, "100%");
    EXPECT_EQ(Count(Ground), rim);
}

TEST_F(Screen, OfNoSizeNothingIsDrawn) {
    Open(0, 10, 1);
    Surface.Line(0, 0, 5, 5, Red);
    Surface.Print(0, 0, "x");
    Surface.FloodFill(0, 0, Red);
    Surface.Refresh();
    EXPECT_EQ(Surface.Width(), 0);
    EXPECT_TRUE(Surface.Picture().isNull());
}

} // namespace
} // namespace pulselark
