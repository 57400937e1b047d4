#include "feedback/ggz.h"

#include "analysis/CoherenceBins.h"
#include "analysis/ColourSchemes.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "session/AnalysisBuffers.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"

#include <algorithm>

namespace pulselark {

std::array<Label, 2> labDI;
Integer WindowScale = 50;
TrainingPlaces picGGZPlace;

namespace {

constexpr double ModeWithIndex = 3;
constexpr Integer LargeScale = 50;

constexpr Colour SessionBar = MakeColour(254, 175, 98);
constexpr Colour SessionBarBehindWindow = MakeColour(254, 187, 121);
constexpr Colour WindowBar = MakeColour(79, 133, 177);
constexpr Colour IndexBar = MakeColour(91, 153, 203);

// Captions of the scores, by the colour scheme.
constexpr std::array<Colour, ColourSchemeCount> ScoreInk{MakeColour(54, 72, 115), MakeColour(142, 125, 102),
                                                         MakeColour(92, 97, 147), MakeColour(71, 108, 133),
                                                         MakeColour(117, 100, 80)};

double BarWidth(int slot) {
    if (slot == 0)
        return WindowScale == LargeScale ? 8 : 6;
    if (FeedbackMode != ModeWithIndex)
        return 0;
    return WindowScale == LargeScale ? 4 : 3;
}

Colour BarColour(int slot) {
    if (slot == 1)
        return WindowBar;
    return FeedbackMode == ModeWithIndex ? SessionBarBehindWindow : SessionBar;
}

void ShowScore(std::size_t which, double score, Colour colour) {
    labDI[which].ForeColour = ScoreInk[static_cast<std::size_t>(ColourSchemeIndex)];
    labDI[which].Caption = std::to_string(Round(score));
    labDI[which].Visible = true;
    const double left = ScoreLeft[which] * picGGZ->Width();
    const double base = (1 - BarBase) * picGGZ->Height();
    const double unit = BarHeight * picGGZ->Height() / 100;
    picGGZ->SetDrawWidth(1);
    picGGZ->SetFillStyleSolid();
    picGGZ->SetForeColour(colour);
    picGGZ->FilledBox(left, base, left + ScoreWidth * picGGZ->Width(), base + score * unit);
}

void ShowScores() {
    ShowScore(0, SessionScore, SessionBar);
    if (FeedbackMode == ModeWithIndex)
        ShowScore(1, DynamicIndex, IndexBar);
    else
        labDI[1].Caption.clear();
}

// Both histograms up to `AnalysisSecond`; `window` is the length of the second one, which may be rewritten.
void ScoreAndDraw(Integer& window) {
    auto wholeSession = static_cast<Integer>(AnalysisSecond - 15);
    BinCoherence(CoherenceA, wholeSession, AnalysisSecond);
    picGGZ->Clear();
    DrawCoherenceBars(0);
    SessionScore = ScoreCoherenceBins();
    BinCoherence(CoherenceA, window, AnalysisSecond);
    DrawCoherenceBars(1);
    DynamicIndex = ScoreCoherenceBins();
}

} // namespace

void DrawCoherenceBars(int slot) {
    const double width = BarWidth(slot);
    const int most = *std::max_element(CoherenceBins.begin(), CoherenceBins.end());
    if (width <= 0 || most <= 0)
        return;
    const double centre = BarRowCentre * picGGZ->Width();
    const double span = BarRowSpan * picGGZ->Width();
    const double base = (1 - BarBase) * picGGZ->Height();
    const double unit = BarHeight * picGGZ->Height() / most;
    picGGZ->SetForeColour(BarColour(slot));
    for (int bin = 1; bin <= CoherenceHistogram::Size; ++bin) {
        if (CoherenceBins[bin] <= 1)
            continue;
        const double x = centre + span * (bin - 5) / 10;
        picGGZ->FilledBox(x - width / 2, base, x + width / 2, base + CoherenceBins[bin] * unit);
    }
}

void DrawBellCurve() {
    constexpr int Reach = 30;
    constexpr Colour BellColour = MakeColour(0xAE, 0xBE, 0xF5);
    std::array<PanelPoint, 2 * Reach + 1> points{};
    int i = -Reach;
    for (PanelPoint& point : points) {
        const double x = i * 100.0 / 60 + 50;
        const double y = BellCurve(i) * 100;
        point = {x / 100 * picSD->Width(), y / 100 * picSD->Height()};
        ++i;
    }
    picSD->Clear();
    picSD->SetDrawWidth(1);
    picSD->Curve(points, BellColour);
}

void TickTraining() {
    QuickScanFresh = On;
    ScoreAndDraw(DynamicIndexInterval);
    if (FeedbackMode > 0)
        SendFeedbackValue();
    ShowScores();
    ShowCurrentSong();
}

void RedrawTraining() {
    QuickScanFresh = On;
    Integer window = DynamicIndexInterval;
    ScoreAndDraw(window);
    ShowScores();
}

namespace {

// The cover stands where the scenery is to come.
void ShowCover() {
    picRestoreGame.Visible = labRestoreGame.Visible = true;
    if (labRestoreGame.Caption.empty())
        labRestoreGame.Caption = LanguageText(TextSceneryLoading);
}

} // namespace

void LayoutTrainingPanel() {
    ShowCover();
    constexpr float Twips = 15;
    constexpr float SideMargin = 240;
    constexpr float RowMargin = 180;   // above and below the mode row, and below the panel
    constexpr float TightMargin = 120; // the same where the window is small
    constexpr float RowHeight = 88 * Twips;
    constexpr float LowRowHeight = 56 * Twips;
    const bool tight = WindowScale != LargeScale;
    const float margin = tight ? TightMargin : RowMargin;
    picGGZPlace.Left = tight ? TightMargin : SideMargin;
    picGGZPlace.Width = frmCanvas.Width - 2 * picGGZPlace.Left;
    picGGZPlace.RowTop = Workspace.TopBarHeight + margin;
    picGGZPlace.RowHeight = tight ? LowRowHeight : RowHeight;
    picGGZPlace.PanelTop = picGGZPlace.RowTop + picGGZPlace.RowHeight + margin;
    picGGZPlace.PanelHeight = frmCanvas.Height - Workspace.StatusHeight - margin - picGGZPlace.PanelTop;
    DrawBellCurve();
    picRestoreGame.Visible = true; // the scenery, once it is there, stands in front of it
    if (labRestoreGame.Caption.empty())
        labRestoreGame.Caption = LanguageText(TextSceneryLoading);
}

void ResetTraining() {
    labDI = {};
    WindowScale = LargeScale;
    picGGZPlace = {};
}

void StopMusicAndScenery() {
    FadeOutMusic();
    timStopScrollGame.Enabled = true;
}

void RestoreScenery() {
    picRestoreGame.Visible = true;
}

} // namespace pulselark
