#include "analysis/CoherenceBins.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/LanguageTable.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace pulselark {

namespace {

constexpr Colour GaugeTop = MakeColour(0x1D, 0x28, 0x58);
constexpr Colour GaugeBottom = MakeColour(0x14, 0x1B, 0x44);
constexpr Colour GaugeLine = MakeColour(0x2A, 0x37, 0x67);
constexpr Colour HeartEdge = MakeColour(209, 85, 111);
constexpr Colour HeartLine = MakeColour(255, 0, 0);
constexpr Colour ScoreOutline = MakeColour(146, 157, 204);
constexpr Colour White = MakeColour(255, 255, 255);

constexpr double GaugeSpan = 110; // scores in the gauge's height
constexpr int LowScore = 20;
constexpr int HighScore = 90;

// Two lobes, each the arc of a circle half as wide as the heart, and two flat arcs that go on from them to
// the point below. Closed; begins and ends in the notch.
std::vector<PanelPoint> HeartOutline(double x, double y, double size) {
    constexpr double LobeEnd = -0.5; // angle at which a lobe passes into its side
    constexpr double LobeHeight = 0.4;
    constexpr double Lowest = -0.95;
    const double radius = size / 2;
    std::vector<PanelPoint> right;
    AppendArc({{x + radius, y + LobeHeight * size}, radius, std::numbers::pi, LobeEnd}, right);
    if (right.empty())
        return right;
    // The side leaves the lobe along its tangent and turns on to the point: the chord's angle to the tangent
    // is half of what it turns.
    const PanelPoint from = right.back();
    const double tangent = LobeEnd - std::numbers::pi / 2;
    const double dx = x - from.X;
    const double dy = y + Lowest * size - from.Y;
    const double half = tangent - (std::atan2(dy, dx));
    const double sideRadius = std::hypot(dx, dy) / (2 * std::sin(half));
    const double toCentre = tangent - std::numbers::pi / 2;
    AppendArc({{from.X + sideRadius * std::cos(toCentre), from.Y + sideRadius * std::sin(toCentre)},
               sideRadius,
               LobeEnd,
               LobeEnd - 2 * half},
              right);
    std::vector<PanelPoint> outline = right;
    for (auto point = right.rbegin(); point != right.rend(); ++point)
        outline.push_back({2 * x - point->X, point->Y});
    return outline;
}

double GaugeY(double score) {
    return QsDown(QsGaugeBox.Base) + QsY(QsGaugeBox.Height) * score / GaugeSpan;
}

double ScoreHeight() {
    return std::max(QsY(2.5 * QsTextPercent), 1.5 * QsTextHeight());
}

void PrintScore(double x, double y, const std::string& text) {
    const double height = ScoreHeight();
    const double pixel = QsPixel();
    QsSetFont(height, QsBold, ScoreOutline);
    // A word may be wider than what is left of the gauge.
    const double right = QsX(QsGaugeBox.Left + QsGaugeBox.Width) - 2 * pixel;
    const double left = std::min(x, right - picQS->TextWidth(text));
    for (int column = -1; column <= 1; ++column) {
        for (int row = -1; row <= 1; ++row)
            QsPrintAt(left + column * pixel, y + row * pixel, text);
    }
    picQS->SetForeColour(White);
    QsPrintAt(left, y, text);
}

} // namespace

void QsDrawHeart(double x, double y, double size, double lineWidth, Colour colour) {
    picQS->Stroke(HeartOutline(x, y, size), {colour, lineWidth});
}

void QsFillHeart(double x, double y, double size, Colour colour) {
    picQS->FilledArea(HeartOutline(x, y, size), colour);
}

void QsDrawGaugeFrame() {
    const double left = QsX(QsGaugeBox.Left);
    const double right = left + QsX(QsGaugeBox.Width);
    const double base = QsDown(QsGaugeBox.Base);
    const double top = base + QsY(QsGaugeBox.Height);
    const std::array<PanelPoint, 5> border{
        {{left, base}, {right, base}, {right, top}, {left, top}, {left, base}}};
    picQS->Stroke(border, {QsFrameColour, QsPixel()});
    QsSetFont(QsTextHeight(), QsPlain);
    for (int score = 0; score <= 100; score += 20)
        QsLabelLeft(QsGaugeBox, QsGaugeBox.Left - 0.5, score / GaugeSpan, std::to_string(score));
}

void QsDrawScoreGauge() {
    const double left = QsX(QsGaugeBox.Left);
    const double width = QsX(QsGaugeBox.Width);
    const double inside = QsPixel() / 2; // of the frame
    picQS->GradientBox(left + inside, QsDown(QsGaugeBox.Base) + inside, left + width - inside,
                       QsDown(QsGaugeBox.Base) + QsY(QsGaugeBox.Height) - inside, GaugeTop, GaugeBottom);
    for (int line = 20; line <= 100; line += 20) {
        const std::array<PanelPoint, 2> ends{
            {{left + inside, GaugeY(line)}, {left + width - inside, GaugeY(line)}}};
        picQS->Stroke(ends, {GaugeLine, QsPixel()});
    }
    const auto score = static_cast<int>(Round(DynamicIndex));
    const double x = left + width / 1.8;
    const double size = QsX(score * 0.02 * SquareRootOfTwo);
    QsDrawHeart(x, GaugeY(score), size, 3 * QsPixel(), HeartEdge);
    QsDrawHeart(x, GaugeY(score), size, 2 * QsPixel(), HeartLine);
    // On a small page the lowest scores would run out of the gauge.
    const double textY = std::max(GaugeY(std::max(score, LowScore)) - size * 1.4, GaugeY(0) + ScoreHeight());
    std::string text = std::to_string(score);
    if (score < LowScore)
        text = LanguageText(TextScanScoreLow);
    if (score >= HighScore)
        text = LanguageText(TextScanScoreHigh);
    PrintScore(x + size, textY, text);
}

} // namespace pulselark
