#include "analysis/CoherenceBins.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <vector>

namespace pulselark {

namespace {

constexpr Colour CoherenceTrace = MakeColour(132, 130, 232);
constexpr Colour SpectrumTrace = MakeColour(255, 0, 0);
constexpr Colour InsetTrace = MakeColour(255, 62, 62);
constexpr Colour CapColour = MakeColour(200, 200, 200);
constexpr Colour ReferenceColour = MakeColour(255, 175, 175);
constexpr Colour BellLine = MakeColour(150, 150, 255);
constexpr Colour BellFill = MakeColour(200, 200, 255);
constexpr Colour BarTop = MakeColour(0x56, 0x63, 0xC8);
constexpr Colour BarBottom = MakeColour(0x3A, 0x46, 0x99);

constexpr double CurveWidth = 1.6;

// A plot or box in units of the surface.
struct PlotArea {
    double Left, Base, Width, Height;
    explicit PlotArea(const PagePlot& plot)
        : Left(QsX(plot.Left)), Base(QsDown(plot.Base)), Width(QsX(plot.Width)), Height(QsY(plot.Height)) {}
};

void DrawLine(double x1, double y1, double x2, double y2, Colour colour) {
    const std::array<PanelPoint, 2> ends{{{x1, y1}, {x2, y2}}};
    picQS->Stroke(ends, {colour, QsPixel()});
}

// A curve of powers that are cut off at a cap: it changes its colour where it runs along the cap.
struct CappedCurve {
    double Left, Step, Base; // x of the first bin, distance of two, y of no power
    double Cap;              // greatest height
    Colour Trace;
    double Width;
};

// `heights`: those of the bins, before the cap.
void DrawCapped(const CappedCurve& curve, const std::vector<double>& heights) {
    const auto height = [&](std::size_t i) { return std::min(heights[i], curve.Cap); };
    const auto colour = [&](std::size_t i) { // of the line from point i on
        return height(i) >= curve.Cap && height(i + 1) >= curve.Cap ? CapColour : curve.Trace;
    };
    std::vector<PanelPoint> line;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        line.push_back({curve.Left + curve.Step * static_cast<double>(i), curve.Base + height(i)});
        const bool last = i + 1 == heights.size();
        if (i > 0 && (last || colour(i) != colour(i - 1))) {
            picQS->Stroke(line, {colour(i - 1), curve.Width});
            line.erase(line.begin(), line.end() - 1);
        }
    }
}

// Means of the 2 w + 1 powers around each bin; bins beyond the ends count as the ones at the ends.
std::vector<double> SmoothedPowers(int bins, int w) {
    std::vector<double> means;
    for (int i = 1; i <= bins; ++i) {
        double sum = 0;
        for (int k = i - w; k <= i + w; ++k)
            sum += QsSpectrum[std::clamp(k, 1, bins - 1)];
        means.push_back(sum / (2 * w + 1));
    }
    return means;
}

// The spectrum as it is, beside its smoothed form.
void DrawInset(int bins, double unit) {
    constexpr double Right = 83.9;
    constexpr double Width = 11.8;
    constexpr double Shrunk = 6.5;
    const double base = QsDown(QsInsetBase);
    picQS->FramedBox(QsX(Right - Width), base, QsX(Right), base + QsY(QsInsetHeight), 2 * QsPixel(),
                     QsBoxFill(), {QsFrameColour, QsPixel()});
    const double margin = QsX(0.25);
    const double low = QsY(0.25 * SquareRootOfTwo);
    std::vector<double> heights;
    for (int i = 1; i <= bins; ++i)
        heights.push_back(QsSpectrum[i] * unit / Shrunk);
    DrawCapped({QsX(Right - Width) + margin, (QsX(Width) - 2 * margin) / (bins - 1), base + low,
                QsY(QsInsetHeight) - 2 * low, InsetTrace, QsPixel()},
               heights);
}

} // namespace

void QsDrawPlotGrid(const PagePlot& plot) {
    const PlotArea area(plot);
    for (int i = 1; i <= 5; ++i) {
        const double y = area.Base + area.Height * i / 5;
        DrawLine(area.Left, y, area.Left + area.Width, y, QsGridColour);
    }
    if (&plot == &QsSpectrumPlot) {
        for (int i = 1; i <= 5; ++i) {
            const double x = area.Left + area.Width * i / 5;
            DrawLine(x, area.Base, x, area.Base + area.Height, QsGridColour);
        }
    }
    DrawLine(area.Left, area.Base, area.Left, area.Base + area.Height, QsRuleColour);
    DrawLine(area.Left, area.Base, area.Left + area.Width, area.Base, QsRuleColour);
}

void QsDrawCoherence(const SecondsBuffer& series) {
    if (SessionSeconds <= ScanSettlingSeconds)
        return;
    const PlotArea area(QsCoherencePlot);
    const double step = area.Width / (SessionSeconds - ScanSettlingSeconds);
    const double scale = area.Height / FullCoherence;
    const double raised = 2 * QsPixel(); // clear of the base line
    std::vector<PanelPoint> points;
    for (Long i = ScanSettlingSeconds; i <= SessionSeconds; ++i) {
        const double value = std::max(0.0F, series.at(i));
        points.push_back({area.Left + step * (i - ScanSettlingSeconds), area.Base + value * scale + raised});
    }
    picQS->Stroke(points, {CoherenceTrace, CurveWidth * QsPixel()});
}

void QsDrawSpectrum() {
    const int bins = QsSpectrumSize / 2;
    if (bins < 2)
        return;
    const PlotArea area(QsSpectrumPlot);
    const double unit = QsY(0.075);
    const int w = std::clamp<int>(QsSmoothing, 0, QsSmoothingMost);
    std::vector<double> heights = SmoothedPowers(bins, w);
    for (double& height : heights)
        height *= unit;
    const double step = area.Width / bins;
    DrawCapped({area.Left, step, area.Base + 1, area.Height, SpectrumTrace, CurveWidth * QsPixel()}, heights);
    if (w > 0 && !QsSmallPage())
        DrawInset(bins, unit);
}

void QsDrawReferenceCurve() {
    std::vector<PanelPoint> points;
    for (int i = 12; i <= 122; ++i)
        points.push_back({QsX(15) + i * QsX(5.7) / 10, QsDown(30) + QsY(200) / i - QsY(1)});
    picQS->Stroke(points, {ReferenceColour, 2 * QsPixel()});
}

void QsDrawBellCurve() {
    const PlotArea area(QsHistogramBox);
    std::vector<PanelPoint> points;
    for (int i = -30; i <= 30; ++i)
        points.push_back({area.Left + area.Width * (i + 30) / 60, area.Base + area.Height * BellCurve(i)});
    std::vector<PanelPoint> closed = points;
    closed.push_back({area.Left + area.Width, area.Base});
    closed.push_back({area.Left, area.Base});
    picQS->FilledArea(closed, BellFill);
    picQS->Stroke(points, {BellLine, CurveWidth * QsPixel()});
}

void QsDrawHistogramFrame() {
    const PlotArea area(QsHistogramBox);
    const double right = area.Left + area.Width;
    const double top = area.Base + area.Height;
    const std::array<PanelPoint, 5> border{
        {{area.Left, area.Base}, {right, area.Base}, {right, top}, {area.Left, top}, {area.Left, area.Base}}};
    picQS->Stroke(border, {QsFrameColour, QsPixel()});
}

void QsDrawHistogram() {
    const PlotArea area(QsHistogramBox);
    const Integer largest = *std::max_element(CoherenceBins.begin(), CoherenceBins.end());
    const double width = area.Width / 10;
    const double gap = std::min(3 * QsPixel(), width / 5); // on each side of a bar
    for (int i = 1; i <= 10; ++i) {
        if (CoherenceBins[i] <= 1)
            continue;
        const double left = area.Left + (i - 1) * width;
        picQS->GradientBox(left + gap, area.Base, left + width - gap,
                           area.Base + area.Height * CoherenceBins[i] / largest, BarTop, BarBottom);
    }
}

} // namespace pulselark
