#include "analysis/CoherenceBins.h"
#include "base/Text.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPage.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/LanguageTable.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace pulselark {

namespace {

constexpr Colour PieLow = MakeColour(200, 237, 200);
constexpr Colour PieHigh = MakeColour(144, 144, 254);
constexpr Colour PieRing = MakeColour(220, 220, 220);
constexpr Colour SmallHeart = MakeColour(209, 85, 111);
// The text's own grey has too little contrast on the screen's box.
constexpr Colour InkOnScreenBox = MakeColour(0x62, 0x62, 0x62);

constexpr double BoxTop = 11.4;
constexpr double BoxHeight = 6.2;
constexpr double PieRadius = 3.6;

// The box at the upper right. On a small page it holds the rows as closely as they can be read, within the
// plot, and no pie beside them.
struct StatsBox {
    bool Pie = QsShowPie != Off;
    bool Bands = QsShowBands != Off;
    double Left, Right, Top, Bottom;    // units, y upwards
    double FirstRow, RowStep;           // upper edge of the first row; down to the next
    static constexpr double Inside = 4; // units between frame and text
    StatsBox() {
        constexpr double WithBands = 18.2;
        constexpr double WithPie = 11.8;
        Right = QsX(Bands ? 86.8 : 83.9);
        Top = QsDown(BoxTop);
        Bottom = QsDown(BoxTop + BoxHeight);
        FirstRow = QsDown(12);
        RowStep = QsY(1.75);
        if (!Bands || !QsSmallPage()) {
            Left = Right - QsX((Pie ? WithPie : 0) + (Bands ? WithBands : 0));
            if (!Pie)
                Left = std::min(Left, QsX(86) - WidestRow() - Inside);
            return;
        }
        Pie = false;
        RowStep = QsTextHeight();
        Top = QsDown(QsSpectrumPlot.Base - QsSpectrumPlot.Height);
        FirstRow = Top - Inside;
        Bottom = FirstRow - 3 * RowStep - Inside;
        Left = QsX(86) - WidestRow() - Inside;
    }
    // Of the rows' texts at their plain height.
    static double WidestRow() {
        double widest = 0;
        for (int i = 0; i < 3; ++i)
            widest = std::max(widest, picQS->TextWidth(Label(i)) + picQS->TextWidth(Value(i)));
        return widest;
    }
    static std::string Label(int row) { return LanguageText(TextScanPowerLow + row) + ": "; }
    static std::string Value(int row) {
        const ScanChannel& shown = ShownChannel();
        const std::array<double, 3> values{shown.Power1, shown.Power2, shown.PowerRatio};
        return FixedText(values[static_cast<std::size_t>(row)], 2);
    }
};

void SetBoxFont(double height) {
    QsSetFont(height, QsBold, QsPrinting != Off ? QsTextColour : InkOnScreenBox);
}

StatsBox PlaceBox() {
    SetBoxFont(QsTextHeight());
    return {};
}

} // namespace

void QsDrawStatsBox() {
    const StatsBox box = PlaceBox();
    picQS->FramedBox(box.Left, box.Bottom, box.Right, box.Top, 3 * QsPixel(), QsBoxFill(),
                     {QsFrameColour, QsPixel()});
}

void QsDrawBalancePie() {
    if (!PlaceBox().Pie)
        return;
    constexpr double Half = 3.14159265;
    const double ratio = ShownChannel().PowerRatio;
    const double angle = 2 * Half * ratio / (1 + ratio);
    double start = (ratio < 1 ? Half : 9.42477795) - angle;
    if (start == 0)
        start = 0.001;
    // The part of the low band runs counterclockwise from `start` to the left, that of the high band on to
    // `start`.
    const double left = ratio < 1 ? Half : 3 * Half;
    const PanelPoint centre{QsX(QsShowBands != Off ? 63.3 : 78), QsDown(14.6)};
    const double radius = QsX(PieRadius);
    const CircleArc whole{centre, radius, 0, 2 * std::numbers::pi};
    picQS->Arc(whole, {PieRing, 3 * QsPixel()});
    picQS->Sector({centre, radius, start, left}, PieLow);
    picQS->Sector({centre, radius, left, start + 2 * Half}, PieHigh);
    picQS->Arc(whole, {PieRing, QsPixel()});
}

void QsPrintBandValues() {
    const StatsBox box = PlaceBox();
    const double right = QsX(86);
    // Rows that are wider than their place begin further left, up to the pie; then the text gets smaller.
    const double limit = box.Pie ? QsX(63.3 + PieRadius + 1) : box.Left + StatsBox::Inside;
    const double widest = StatsBox::WidestRow();
    if (widest > right - limit)
        SetBoxFont(QsTextHeight() * (right - limit) / widest);
    const double left = std::max(limit, std::min(QsX(69.6), right - widest));
    for (int i = 0; i < 3; ++i) {
        const double top = box.FirstRow - i * box.RowStep;
        QsPrintAt(left, top, StatsBox::Label(i));
        QsPrintAt(right, top, StatsBox::Value(i), TextSide::Right);
    }
}

void QsPrintAverage() {
    QsSetFont(QsTextHeight(), QsHeading);
    QsPrintOnPlate(QsX(85), QsDown(37), QsTextHeight(),
                   LanguageText(TextScanAverage) + std::to_string(Round(QsCoherencePercent)),
                   TextSide::Right);
}

void QsPrintMeanRate() {
    double height = QsTextHeight();
    double top = QsDown(18.7);
    if (QsSmallPage() && QsShowBands != Off) {
        top = std::min(top, PlaceBox().Bottom - 2 * QsPixel());
    } else if (QsSmoothing > 0 && !QsSmallPage()) {
        // Between the box and the inset there is room for less than a whole line.
        constexpr double Smaller = 13 / 14.14;
        height *= Smaller;
        top = QsDown(QsInsetBase - QsInsetHeight) + 3 * QsPixel() + height;
    }
    QsSetFont(height, QsBold);
    const std::string rate = FixedText(ShownChannel().MeanHeartRate, 0) + " BMP";
    const double size = 0.45 * height;
    const double left = std::min(QsX(72.3), QsX(83.7) - picQS->TextWidth(rate) - 3 * size);
    QsDrawPlate(left, QsX(83.7), top, height);
    QsPrintAt(QsX(83.7), top, rate, TextSide::Right);
    QsFillHeart(left + size, top - height / 2, size, SmallHeart);
}

} // namespace pulselark
