#include "analysis/PanelDrawing.h"
#include "platform/Platform.h"
#include "quickscan/QsPageFrame.h"
#include "quickscan/QsPageParts.h"
#include "session/LanguageTable.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

constexpr double LeftEdge = 15;
constexpr double RightEdge = 85;
constexpr double LongestTitle = 97; // where a long name is cut

const std::string& ShownTitle() {
    if (QuickScanResultShown == Off)
        return LanguageText(TextScanNone);
    return LanguageText(QuickScanFresh != Off ? TextScanChannelA : TextScanChannelB);
}

// The name without its folders, which are nobody's business on a page that is handed out.
std::string FileOfSession() {
    const std::size_t slash = SessionName.find_last_of("/\\");
    return slash == std::string::npos ? SessionName : SessionName.substr(slash + 1);
}

// The title's lines, and the rule below them.
void PrintTitle() {
    const std::array<std::string, 3> lines{
        LanguageText(TextScanTitle) + ShownTitle(), LanguageText(TextScanFile) + FileOfSession(),
        LanguageText(TextScanRecorded) + LanguageText(TextScanPrinted) + ThePlatform().Clock.LocalDate()};
    constexpr std::array Tops{2.5, 4.0, 5.5};
    constexpr double Rule = 8;
    double free = picQS->Height(); // below what has been printed
    for (std::size_t i = 0; i < lines.size(); ++i) {
        QsSetFont(QsTextHeight(), i == 0 ? QsBold : QsPlain);
        const double top = std::min(QsDown(Tops[i]), free);
        QsPrintOnPlate(QsX(LeftEdge), top, QsTextHeight(), QsFitted(lines[i], QsX(LongestTitle - LeftEdge)));
        free = top - QsTextHeight();
    }
    const double rule = std::min(QsDown(Rule), free - 2 * QsPixel());
    const std::array<PanelPoint, 2> ends{{{QsX(LeftEdge), rule}, {QsX(RightEdge), rule}}};
    picQS->Stroke(ends, {QsRuleColour, 1.3 * QsPixel()});
}

void PrintCaption(double left, double right, double top, int item) {
    QsPrintOnPlate(QsX(left), QsDown(top), QsTextHeight(), QsFitted(LanguageText(item), QsX(right - left)));
}

void PrintCaptions() {
    QsSetFont(QsTextHeight(), QsHeading);
    PrintCaption(LeftEdge, RightEdge, 12, TextScanSpectrumCaption);
    PrintCaption(LeftEdge, RightEdge, 37, TextScanCoherenceCaption);
    PrintCaption(LeftEdge, QsGaugeBox.Left - 2, 62, TextScanHistogramCaption);
    PrintCaption(QsGaugeBox.Left, RightEdge, 62, TextScanGaugeCaption);
}

void LabelCoherencePlot() {
    for (int i = 1; i <= 5; ++i)
        QsLabelLeft(QsCoherencePlot, 14, i / 5.0, std::to_string(i * 20));
    QsLabelUnder(QsCoherencePlot, 0, "0");
    QsLabelUnder(QsCoherencePlot, 1, FormatMinSec(SessionSeconds), TextSide::Right);
}

void LabelSpectrumPlot() {
    constexpr double Right = 14.5;
    for (int i = 0; i <= 5; ++i)
        QsLabelUnder(QsSpectrumPlot, i / 5.0, FormatTenths(i / 10.0, false) + (i == 5 ? " Hz" : ""));
    for (int i = 1; i <= 4; ++i)
        QsLabelLeft(QsSpectrumPlot, Right, i / 5.0, std::to_string(i * 25));
    const std::string last = "125  ms^2";
    QsLabelLeft(QsSpectrumPlot, Right, 1, picQS->TextWidth(last) < QsX(Right) ? last : "125");
}

void LabelHistogram() {
    for (int i = 0; i <= 2; ++i) {
        QsLabelUnder(QsHistogramBox, i / 2.0, std::to_string(i * 50));
        QsLabelLeft(QsHistogramBox, 14.5, i / 2.0, FormatTenths(i / 2.0, false));
    }
}

} // namespace

void QsDrawPageText() {
    PrintTitle();
    PrintCaptions();
    QsSetFont(QsTextHeight(), QsPlain);
    LabelCoherencePlot();
    LabelSpectrumPlot();
    LabelHistogram();
}

} // namespace pulselark
