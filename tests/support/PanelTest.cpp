#include "support/PanelTest.h"

#include "analysis/ColourSchemes.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr double Near = 0.5;

bool Close(double a, double b) {
    return std::abs(a - b) <= Near;
}

} // namespace

void PanelTest::Place(const Size& size, Surface*& a, Surface*& b) {
    A.emplace(size.W, size.H);
    B.emplace(size.W, size.H);
    a = &*A;
    b = &*B;
}

double Wide(const std::string& text) {
    return 6.0 * static_cast<double>(text.size());
}

int StepOf(double distance, double perUnit, bool narrow) {
    const int greatest = narrow ? 50 : 200;
    for (const int step : {1, 2, 5, 10, 20, 50, 100}) {
        if (step >= greatest || perUnit * step >= distance)
            return step;
    }
    return greatest;
}

double Gain(double s) {
    return std::exp(s / 100 * std::log(100.0));
}

void ExpectAxes(const RecordingSurface& panel, const Axes& axes) {
    std::vector<RecordingSurface::Text> texts;
    std::copy_if(panel.Texts.begin(), panel.Texts.end(), std::back_inserter(texts),
                 [](const auto& text) { return text.Font == "MS Sans Serif"; });
    EXPECT_EQ(texts.size(), axes.Texts.size());
    for (const AxisText& wanted : axes.Texts) {
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                                [&](const auto& text) {
                                    return text.Value == wanted.Value && Close(text.X, wanted.X) &&
                                           Close(text.Y, wanted.Y);
                                }))
            << "no \"" << wanted.Value << "\" at " << wanted.X << ", " << wanted.Y;
    }
    std::vector<RecordingSurface::Segment> lines;
    std::copy_if(panel.Segments.begin(), panel.Segments.end(), std::back_inserter(lines),
                 [](const auto& line) { return line.Ink == CurrentScheme().Grid; });
    EXPECT_EQ(lines.size(), axes.Lines.size());
    for (const AxisLine& wanted : axes.Lines) {
        EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                                [&](const auto& line) {
                                    return line.DrawWidth == wanted.Width && Close(line.X1, wanted.X1) &&
                                           Close(line.Y1, wanted.Y1) && Close(line.X2, wanted.X2) &&
                                           Close(line.Y2, wanted.Y2);
                                }))
            << "no line of width " << wanted.Width << " from " << wanted.X1 << ", " << wanted.Y1 << " to "
            << wanted.X2 << ", " << wanted.Y2;
    }
}

void ExpectNoCollision(const RecordingSurface& panel) {
    for (std::size_t i = 0; i < panel.Texts.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const auto& a = panel.Texts[i];
            const auto& b = panel.Texts[j];
            const bool apart = a.X + Wide(a.Value) <= b.X || b.X + Wide(b.Value) <= a.X ||
                               std::abs(a.Y - b.Y) >= Axes::TextHigh;
            EXPECT_TRUE(apart) << a.Value << " lies on " << b.Value;
        }
    }
}

void ExpectTrace(const RecordingSurface::Trace& trace, std::size_t count, Colour ink, int drawWidth,
                 const std::function<PanelPoint(int)>& at) {
    EXPECT_EQ(trace.Ink, ink);
    EXPECT_EQ(trace.DrawWidth, drawWidth);
    ASSERT_EQ(trace.Points.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const PanelPoint wanted = at(static_cast<int>(i));
        ASSERT_NEAR(trace.Points[i].X, wanted.X, Near) << "point " << i;
        ASSERT_NEAR(trace.Points[i].Y, wanted.Y, Near) << "point " << i;
    }
}

Colour HalfWay(Colour a, Colour b) {
    Colour mix = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const unsigned sum = ((a >> shift) & 255U) + ((b >> shift) & 255U);
        const unsigned half = sum / 2;
        mix |= (sum % 2 == 1 && half % 2 == 1 ? half + 1 : half) << shift;
    }
    return mix;
}

} // namespace pulselark
