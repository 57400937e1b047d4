#include "analysis/GameChart.h"

#include "analysis/ColourSchemes.h"
#include "analysis/PanelDrawing.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <string>

namespace pulselark {

Boolean GamesOpen;
GameMarker imA;
Label labGame;

namespace {

constexpr double FullCoherence = 0.11;
constexpr double RowsInHeight = 11.5; // rows of 10 %: 0 to 110 %, and half a row for the lower labels
constexpr int Rows = 10;
constexpr int FirstTenth = 5; // of a second, at the left edge
constexpr int LastTenth = 15; // at the right edge
constexpr double TenthsInWidth = 10;
constexpr Colour CoherenceColour = 0xE88284;
constexpr Colour RateColour = 0x474AE1;

Colour LineColour(bool main) {
    return main ? CurrentScheme().Grid : MixColours(CurrentScheme().Grid, PanelBackColour());
}

void DrawRows(Surface& chart) {
    const double row = chart.Height() / RowsInHeight;
    const double edge = chart.TextWidth("100");
    const double high = chart.TextHeight("100");
    for (int i = 0; i <= Rows; ++i) {
        const bool main = i % 5 == 0;
        const double y = chart.Height() - (Rows + 1 - i) * row;
        const std::string text = std::to_string(10 * i);
        const bool labelled = i > 0 && (main || row >= high * 1.4);
        if (labelled) {
            chart.SetForeColour(CoherenceColour);
            chart.Print(edge + 4 - chart.TextWidth(text), y + high / 2, i == Rows ? text + "%" : text);
        }
        chart.Line(chart.TextWidth("100%") + 8, y, chart.Width(), y, LineColour(main));
    }
}

void DrawColumns(Surface& chart) {
    const double column = chart.Width() / TenthsInWidth;
    const double left = chart.TextWidth("100%") + 8;
    const double top = chart.Height() - chart.Height() / RowsInHeight;
    const double bottom = 0.5 * chart.Height() / RowsInHeight;
    const bool roomy = column >= chart.TextWidth(".....") + chart.TextWidth("0.0");
    for (int tenth = FirstTenth; tenth <= LastTenth; ++tenth) {
        const bool main = tenth % 5 == 0;
        const double x = (tenth - FirstTenth) * column;
        if (x < left)
            continue;
        chart.Line(x, bottom, x, top, LineColour(main));
        const std::string seconds = FormatTenths(tenth / 10.0, false);
        const std::string rate = std::to_string(Round(600.0 / tenth));
        const double widest = std::max(chart.TextWidth(rate), chart.TextWidth(seconds));
        if ((!main && !roomy && tenth % 2 != 0) || x - widest / 2 < left || x + widest / 2 > chart.Width())
            continue;
        chart.SetForeColour(RateColour);
        chart.Print(x - chart.TextWidth(rate) / 2, top + chart.TextHeight(rate) * 1.2, rate);
        chart.SetForeColour(CurrentScheme().Text);
        chart.Print(x - chart.TextWidth(seconds) / 2, chart.TextHeight(seconds), seconds);
    }
}

void PlaceMarker(double coherence) {
    const double width = picGame->Width();
    const double height = picGame->Height();
    const double share = coherence / FullCoherence;
    imA.Size = height / 11;
    imA.Top = (1.1 - share) * 10 / RowsInHeight * height - MarkerPointY * imA.Size;
    imA.Left = (PeakIndexA - 32) * 2.0 * 4 * width / 512 - MarkerPointX * imA.Size;
    imA.Visible = PeakIndexA > 0 && height > 0;
    labGame.Caption = std::to_string(Round(share * 100)) + "%";
    labGame.ForeColour = CoherenceColour;
    labGame.Visible = imA.Visible;
}

double CoherenceShown() {
    return AnalysisSecond >= 0 && AnalysisSecond < SecondsBufferSize ? CoherenceAvgA[AnalysisSecond + 1] : 0;
}

} // namespace

void OpenGames(double coherence) {
    GamesOpen = On;
    PlaceMarker(coherence);
}

void OpenGamesFromHistory() {
    OpenGames(CoherenceShown());
}

void CloseGames() {
    GamesOpen = Off;
}

void DrawGameChart() {
    Surface& chart = *picGame;
    if (chart.Width() <= 0)
        return;
    TileImage(chart, picModBGSrc(ColourSchemeIndex), TileMode::Stretch);
    chart.StorePicture(chart);
    SetPanelFont(chart);
    chart.SetDrawWidth(1);
    DrawRows(chart);
    DrawColumns(chart);
    PlaceMarker(CoherenceShown());
}

void MoveGameMarker() {
    if (GamesOpen != Off)
        PlaceMarker(CoherenceShown());
}

void ResetGames() {
    GamesOpen = Off;
    imA = {};
    labGame = {};
}

} // namespace pulselark
