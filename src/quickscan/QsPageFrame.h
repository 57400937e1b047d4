#pragma once

#include "base/Numbers.h"
#include "platform/Surface.h"

#include <string>
#include <string_view>

/// The paper of the quick scan: `picQS` measured in percent of its size, and what all its parts draw with.
namespace pulselark {

// Parts of the page, in percent of its width and, from the top, of its height. Plots stand on their base
// line. Square parts are `SquareRootOfTwo` times as wide as they are high, for a page of that proportion.
inline constexpr double SquareRootOfTwo = 1.4142135623730951;
struct PagePlot {
    double Left, Base, Width, Height;
};
inline constexpr PagePlot QsSpectrumPlot{15, 30, 70, 15};
inline constexpr PagePlot QsCoherencePlot{15, 55, 70, 15};
inline constexpr PagePlot QsHistogramBox{15, 85, 20 * SquareRootOfTwo, 20};
inline constexpr PagePlot QsGaugeBox{57, 85, 20 * SquareRootOfTwo, 20};
inline constexpr double QsInsetBase = 23.4; ///< of the inset with the spectrum as it is, before smoothing
inline constexpr double QsInsetHeight = 4;

inline constexpr Colour QsTextColour = MakeColour(100, 100, 100);
inline constexpr Colour QsRuleColour = MakeColour(150, 150, 150);
inline constexpr Colour QsGridColour = MakeColour(200, 200, 200);
inline constexpr Colour QsFrameColour = MakeColour(175, 187, 235);

inline constexpr double QsTextPercent = 1.1; ///< height of the text, of the page's height
inline constexpr int QsPlain = 400;
inline constexpr int QsHeading = 500;
inline constexpr int QsBold = 700;

/// The page is being drawn for paper: boxes are white. Start 0.
extern Boolean QsPrinting;

/// Fill of a framed box: grey on the screen, white on paper.
Colour QsBoxFill();

/// What the page is drawn on: the screen's light paper, or white.
Colour QsPaperColour();

/// Parts of the page's width and height in units of its surface; `percent` of the height counts down from the
/// top in `QsDown`, which gives the surface's own y.
double QsX(double percent);
double QsY(double percent);
double QsDown(double percent);

/// The unit of line widths: a pixel of the screen up to a page 1285 high (a sheet of 1414 with its margin),
/// then growing with the page.
double QsPixel();

/// Height of the page's text: 1.1 percent of its height, and on a small panel still what can be read.
double QsTextHeight();

/// A panel so small that lines of readable text are higher than the page's distance between lines. Texts are
/// then put below each other, and what finds no room is left out.
bool QsSmallPage();

/// Where a text stands at the x that it is printed at.
enum class TextSide { Left, Centre, Right };

/// Labels of a scale on the left of a plot, right-aligned to `right` percent, at `share` of its height; and
/// under it, at `share` of its width.
void QsLabelLeft(const PagePlot& plot, double right, double share, std::string_view text);
void QsLabelUnder(const PagePlot& plot, double share, std::string_view text,
                  TextSide side = TextSide::Centre);

/// Prints a text at `x` in units; `top` is the y of its upper edge, the surface's own. The font holds until
/// the next `QsSetFont`.
void QsSetFont(double height, int weight, Colour ink = QsTextColour);
void QsPrintAt(double x, double top, std::string_view text, TextSide side = TextSide::Left);

/// The same where a curve may run: on a plate of the paper, as high as the text in `height` units.
void QsPrintOnPlate(double x, double top, double height, std::string_view text,
                    TextSide side = TextSide::Left);
/// The plate by itself, from `left` to `right`; the colour that follows is `ink`.
void QsDrawPlate(double left, double right, double top, double height, Colour ink = QsTextColour);

/// The text, cut with three dots to fit `width`.
std::string QsFitted(const std::string& text, double width);

} // namespace pulselark
