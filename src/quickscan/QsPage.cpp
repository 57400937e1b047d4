#include "quickscan/QsPage.h"

#include "analysis/CoherenceBins.h"
#include "base/FlagWhile.h"
#include "quickscan/QsAnalysis.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>

namespace pulselark {

namespace {

constexpr double SliderWidth = 16;
constexpr double LeastSliderHeight = 48;

void PaintPaper() {
    picQS->SetForeColour(QsPaperColour());
    picQS->FilledBox(0, 0, picQS->Width(), picQS->Height());
    picQS->StorePicture(*picQS);
}

// The slider stands at the right end of the spectrum plot, within it, so that the pointer can get there; its
// two parts meet at the smoothing in use.
void PlaceSlider() {
    const double right = QsX(QsSpectrumPlot.Left + QsSpectrumPlot.Width);
    picSliderAv.Left = right - SliderWidth;
    picSliderAv.Bottom = QsDown(QsSpectrumPlot.Base);
    picSliderAv.Width = SliderWidth;
    picSliderAv.Height = QsY(QsSpectrumPlot.Height);
    const double share =
        static_cast<double>(std::clamp<Integer>(QsSmoothing, 0, QsSmoothingMost)) / QsSmoothingMost;
    picAvDown = picAvUp = picSliderAv;
    picAvDown.Height = share * picSliderAv.Height;
    picAvUp.Bottom = picSliderAv.Bottom + picAvDown.Height;
    picAvUp.Height = picSliderAv.Height - picAvDown.Height;
}

void ShowSlider(bool visible) {
    picSliderAv.Visible = picAvUp.Visible = picAvDown.Visible = visible;
}

// A scan of a channel that the session has.
bool HasData() {
    return QuickScanResultShown != Off && (QuickScanFresh != Off || ChannelBPresent != Off);
}

// Another surface for a while.
class PageOn {
public:
    explicit PageOn(Surface& surface) : before_(picQS) { picQS = &surface; }
    PageOn(const PageOn&) = delete;
    PageOn& operator=(const PageOn&) = delete;
    ~PageOn() { picQS = before_; }

private:
    Surface* before_;
};

} // namespace

void QsShowPage(bool fullLayout) {
    if (fullLayout)
        PaintPaper();
    QsDrawPlotGrid(QsCoherencePlot);
    QsDrawPlotGrid(QsSpectrumPlot);
    QsDrawBellCurve();
    QsDrawHistogramFrame();
    QsDrawGaugeFrame();
    if (!HasData())
        QsDrawPageText();
    if (fullLayout)
        PlaceSlider();
}

void QsAnalyseAndDraw() {
    if (QuickScanResultShown == Off)
        return;
    QsMeasure();
    QsDrawCoherence(ShownChannel().Coherence);
    QsDrawPageText(); // now: that curve runs as far up the page as its values go
    QsDrawSpectrum();
    if (QsShowReference != Off)
        QsDrawReferenceCurve();
    QsDrawHistogram();
    QsDrawScoreGauge();
    if (QsShowBpm != Off)
        QsPrintMeanRate();
    if (QsShowPie != Off || QsShowBands != Off)
        QsDrawStatsBox();
    if (QsShowPie != Off)
        QsDrawBalancePie();
    if (QsShowBands != Off)
        QsPrintBandValues();
    QsPrintAverage();
}

void OpenQuickScanPanel() {
    picQS->Clear();
    QsShowPage(true);
    if (HasData())
        QsAnalyseAndDraw();
}

void QsDrawOnPaper(Surface& paper) {
    const PageOn page(paper);
    const FlagWhile printing(QsPrinting);
    QsShowPage(false);
    if (HasData())
        QsAnalyseAndDraw();
}

void QsPointerMove(double x, double y) {
    const double left = QsX(QsSpectrumPlot.Left);
    const double base = QsDown(QsSpectrumPlot.Base);
    const double height = QsY(QsSpectrumPlot.Height);
    ShowSlider(QuickScanResultShown != Off && height >= LeastSliderHeight && x >= left &&
               x <= left + QsX(QsSpectrumPlot.Width) && y >= base && y <= base + height);
}

void QsPointerLeave() {
    ShowSlider(false);
}

void QsSmoothingFromPointer(double y) {
    if (!(picSliderAv.Height > 0))
        return;
    const double share = std::clamp((y - picSliderAv.Bottom) / picSliderAv.Height, 0.0, 1.0);
    const auto smoothing = static_cast<Integer>(Round(share * QsSmoothingMost));
    if (smoothing == QsSmoothing)
        return;
    QsSmoothing = smoothing;
    OpenQuickScanPanel();
}

} // namespace pulselark
