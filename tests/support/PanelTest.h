#pragma once

#include "base/Controls.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pulselark {

/// A text of an axis by its upper left corner, and a line of the grid.
struct AxisText {
    double X, Y;
    std::string Value;
};
struct AxisLine {
    double X1, Y1, X2, Y2;
    int Width;
};
struct Axes {
    std::vector<AxisText> Texts;
    std::vector<AxisLine> Lines;

    /// A vertical grid line from the baseline to the top of a panel.
    void Vertical(double x, double height) { Lines.push_back({x, TextHigh, x, height, 1}); }
    static constexpr double TextHigh = 12;
};

/// Two panels, A and B, of any size on recording surfaces.
class PanelTest : public SessionTest {
protected:
    static constexpr double TH = Axes::TextHigh;
    struct Size {
        double W, H;
    };
    static constexpr Size Sizes[] = {{900, 400}, {300, 150}, {200, 90}};

    /// Puts new surfaces in the place of both panels.
    void Place(const Size& size, Surface*& a, Surface*& b);

    std::optional<RecordingSurface> A, B;
};

/// Width of a text on the recording surface.
double Wide(const std::string& text);

/// The least of 1, 2, 5, 10, 20, 50, 100, 200 (narrow: to 50) that keeps the distance, else the greatest.
int StepOf(double distance, double perUnit, bool narrow = false);

/// A gain for a scale of s: 100^(s / 100).
double Gain(double s);

/// Exactly these texts and these lines in the grid's colour, in any order, each within half a unit. The
/// peak's text and curves are not looked at.
void ExpectAxes(const RecordingSurface& panel, const Axes& axes);

/// No text of a panel may lie on another one.
void ExpectNoCollision(const RecordingSurface& panel);

/// `count` points within half a unit of `at(0)`, `at(1)` ...
void ExpectTrace(const RecordingSurface::Trace& trace, std::size_t count, Colour ink, int drawWidth,
                 const std::function<PanelPoint(int)>& at);

/// Half-way between two colours; a mean with a half goes to the even neighbour.
Colour HalfWay(Colour a, Colour b);

} // namespace pulselark
