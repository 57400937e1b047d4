#include "quickscan/QsPageFrame.h"

#include "session/PanelSurfaces.h"

#include <algorithm>

namespace pulselark {

Boolean QsPrinting = Off;

namespace {

constexpr double LinePercent = 1.5;
constexpr double UnderPlot = 0.4;        // distance of a scale's labels below it
constexpr double LeastTextHeight = 11;   // of the screen
constexpr double PixelPageHeight = 1285; // from here on lines grow with the page

double LeftOfText(double x, std::string_view text, TextSide side) {
    const double part = side == TextSide::Left ? 0 : side == TextSide::Centre ? 0.5 : 1;
    return x - part * picQS->TextWidth(text);
}

} // namespace

Colour QsBoxFill() {
    return QsPrinting != Off ? MakeColour(255, 255, 255) : MakeColour(226, 222, 219);
}

Colour QsPaperColour() {
    return QsPrinting != Off ? MakeColour(255, 255, 255) : MakeColour(0xFB, 0xFA, 0xF9);
}

double QsX(double percent) {
    return percent / 100 * picQS->Width();
}

double QsY(double percent) {
    return percent / 100 * picQS->Height();
}

double QsDown(double percent) {
    return picQS->Height() - QsY(percent);
}

double QsPixel() {
    return std::max(1.0, picQS->Height() / PixelPageHeight);
}

double QsTextHeight() {
    return std::max(QsY(QsTextPercent), LeastTextHeight);
}

bool QsSmallPage() {
    return QsTextHeight() > QsY(LinePercent);
}

void QsSetFont(double height, int weight, Colour ink) {
    picQS->SetPageFont(height, weight);
    picQS->SetForeColour(ink);
}

void QsPrintAt(double x, double top, std::string_view text, TextSide side) {
    picQS->Print(LeftOfText(x, text, side), top, text);
}

void QsPrintOnPlate(double x, double top, double height, std::string_view text, TextSide side) {
    const double left = LeftOfText(x, text, side);
    QsDrawPlate(left, left + picQS->TextWidth(text), top, height);
    picQS->Print(left, top, text);
}

void QsDrawPlate(double left, double right, double top, double height, Colour ink) {
    const double beside = 3 * QsPixel();
    picQS->SetForeColour(QsPaperColour());
    picQS->FilledBox(left - beside, top - height, right + beside, top);
    picQS->SetForeColour(ink);
}

void QsLabelLeft(const PagePlot& plot, double right, double share, std::string_view text) {
    const double y = QsDown(plot.Base) + share * QsY(plot.Height);
    QsPrintAt(QsX(right), y + QsTextHeight() / 2, text, TextSide::Right);
}

void QsLabelUnder(const PagePlot& plot, double share, std::string_view text, TextSide side) {
    // On a small page clear of the label that stands at the foot of the other scale.
    const double distance = QsSmallPage() ? QsTextHeight() / 2 : QsY(UnderPlot);
    QsPrintOnPlate(QsX(plot.Left + share * plot.Width), QsDown(plot.Base) - distance, QsTextHeight(), text,
                   side);
}

std::string QsFitted(const std::string& text, double width) {
    if (picQS->TextWidth(text) <= width)
        return text;
    std::string cut = text;
    const auto withDots = [&cut] { return cut + "..."; };
    while (!cut.empty() && picQS->TextWidth(withDots()) > width) {
        // A character of UTF-8 ends with its first byte, seen from behind.
        while (!cut.empty() && (static_cast<unsigned char>(cut.back()) & 0xC0U) == 0x80U)
            cut.pop_back();
        if (!cut.empty())
            cut.pop_back();
    }
    return withDots();
}

} // namespace pulselark
