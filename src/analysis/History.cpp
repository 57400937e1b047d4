#include "analysis/History.h"

#include "analysis/ColourSchemes.h"
#include "analysis/GainDrag.h"
#include "analysis/GameChart.h"
#include "analysis/HistoryStyles.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

double HistoryGain = 100;
Integer HistorySpanSeconds = 60;
Integer HistoryStyle = 3;
Boolean HistoryForceRedraw = Off;
Boolean ScaleDragging = Off;

namespace {

constexpr GainDragLimits GainLimits{85, 130, 2};
constexpr double LeastSpanScale = 56;
constexpr double MostSpanScale = 144;
constexpr double SpanStepsPerPixel = 0.2;
constexpr double SpanBase = 60;

constexpr Colour CoherenceColour = 0xE88284;
constexpr Colour RateColour = 0x4149CE;
constexpr Colour RateLabelColour = 0x474AE1;
constexpr Colour TimeLabelColour = 0xA46B79;

/// What a panel shows now.
struct HistoryShown {
    Long LastSecond = 0;
    Integer LastGain = 0;
    Integer LastSpan = 0;
};
struct HistoryTrackRecord {
    HistoryShown A, B;
    float DragX = 0;
    float DragY = 0;
    double DragGain = 0;
    double DragGainApplied = 0;
    double DragSpan = 0;
    double DragSpanApplied = 0;
};
HistoryTrackRecord HistoryTrack;

struct HistoryView {
    Surface*& Panel;
    const SecondsBuffer& CoherenceAvg;
    const SecondsBuffer& IbiAvg;
    std::array<CaptionLabel, 3>& Captions;
    CaptionLabel& Rate;
    HistoryShown& Shown;
};
const HistoryView viewA{picHisA, CoherenceAvgA, IbiAvgA, labLeftHis, labBPMA, HistoryTrack.A};
const HistoryView viewB{picHisB, CoherenceAvgB, IbiAvgB, labRightHis, labBPMB, HistoryTrack.B};

using HistoryCurve = std::array<PanelPoint, 512>;

double PlotLeft(const Surface& panel) {
    return panel.TextWidth("100% 60.5bpm**");
}

// The captions stand at the left; where the scales' highest labels need that room they move to the plot.
void MoveCaptions(const HistoryView& view, const VerticalAxis& axis, int lastValue) {
    constexpr double Overlap = 3; // a label's own upper margin
    const double clear = view.Panel->Height() - view.Captions[0].Height;
    int highest = lastValue / axis.Step * axis.Step;
    while (highest > 0 && !axis.LabelFits(highest))
        highest -= axis.Step;
    double left = axis.LabelY(highest) > clear + Overlap ? PlotLeft(*view.Panel) : 0;
    for (CaptionLabel& caption : view.Captions) {
        caption.Left = left;
        left += caption.Width;
    }
}

void DrawScales(const HistoryView& view) {
    constexpr int LastValue = 100;
    Surface& panel = *view.Panel;
    const VerticalAxis axis(panel, HistoryGain > 0 ? static_cast<double>(Round(12000 / HistoryGain)) : 0);
    MoveCaptions(view, axis, LastValue);
    const CaptionLabel& lastCaption = view.Captions.back();
    const double percentEdge = panel.TextWidth("100");
    const double rateEdge = panel.TextWidth("100%*");
    for (int k = 0; k <= LastValue / axis.Step; ++k) {
        const int value = k * axis.Step;
        const double y = axis.LineY(value);
        if (axis.LabelFits(value)) {
            const bool last = value == LastValue || !axis.LabelFits(value + axis.Step);
            const std::string percent = std::to_string(value);
            panel.SetForeColour(CoherenceColour);
            panel.Print(percentEdge - panel.TextWidth(percent), axis.LabelY(value),
                        last ? percent + "%" : percent);
            const std::string rate = RateLabel(value);
            panel.SetForeColour(RateLabelColour);
            panel.Print(rateEdge, axis.LabelY(value), last ? rate + "bpm" : rate);
        }
        panel.SetDrawWidth(axis.LineWidth(value));
        const bool amongCaptions = y > panel.Height() - view.Captions[0].Height;
        const double from =
            amongCaptions ? lastCaption.Left + lastCaption.Width + panel.TextWidth("*") : PlotLeft(panel);
        const double to = amongCaptions ? panel.Width() - view.Rate.Width : panel.Width();
        if (to > from)
            panel.Line(from, y, to, y, CurrentScheme().Grid);
    }
    panel.SetDrawWidth(1);
}

void DrawTimes(Surface& panel, double secondWidth) {
    const double textHeight = panel.TextHeight("0");
    const double left = PlotLeft(panel);
    const Integer step =
        ChooseGridStep(panel.TextWidth("00:00"), panel.Width(), HistorySpanSeconds, GridSteps::Narrow);
    panel.SetForeColour(TimeLabelColour);
    // Where even the widest step leaves no room, only every second label is printed, by its time, so that
    // they do not jump.
    const bool sparse = step * secondWidth < panel.TextWidth("00:00");
    for (Long k = 0; k <= AnalysisSecond / step; ++k) {
        const double x = panel.Width() - (AnalysisSecond - k * step) * secondWidth;
        if (x <= left)
            continue;
        panel.Line(x, textHeight, x, panel.Height(), CurrentScheme().Grid);
        const std::string label = FormatMinSec(k * step);
        // A label that the right edge would cut is left out.
        const double width = panel.TextWidth(label);
        if (x + width / 2 <= panel.Width() && !(sparse && k % 2 != 0))
            panel.Print(x - width / 2, textHeight, label);
    }
}

// A series from the newest second backwards, as far as the plot reaches; `valueOf` gives the panel units
// above the baseline of a second.
template <class ValueOf>
std::span<const PanelPoint> CurveOf(const Surface& panel, Long points, double secondWidth,
                                    HistoryCurve& curve, ValueOf valueOf) {
    const double left = PlotLeft(panel);
    const double base = panel.TextHeight("0") + 2;
    std::size_t count = 0;
    const auto add = [&](Long i) {
        curve[count++] = {panel.Width() - secondWidth * i, valueOf(AnalysisSecond - i + 1) + base};
    };
    for (Long i = 1; i <= points - 2 && count < curve.size(); ++i) {
        if (panel.Width() - secondWidth * (i + 1) <= left)
            break;
        if (count == 0)
            add(i);
        add(i + 1);
    }
    return {curve.data(), count};
}

void DrawSeries(Surface& panel, std::span<const PanelPoint> curve, Colour colour, SeriesStyle style,
                double secondWidth) {
    const Colour mix = MixColours(colour, PanelBackColour());
    if (style == SeriesStyle::Line) {
        panel.SetDrawWidth(3);
        panel.Curve(curve, mix);
        panel.SetDrawWidth(1);
        panel.Curve(curve, colour);
        return;
    }
    panel.SetDrawWidth(1);
    panel.Curve(curve, mix);
    if (panel.Persistent() && !curve.empty()) {
        FillUnderCurve(panel, curve, curve.front().X, panel.Width() - secondWidth - 2, mix, colour,
                       PlotLeft(panel));
    }
}

void DrawCoherenceSeries(const HistoryView& view, Long points, double secondWidth) {
    const SeriesStyle style = StyleOf(HistoryStyle).Coherence;
    Surface& panel = *view.Panel;
    if (style == SeriesStyle::None)
        return;
    const double scale = panel.Height() * HistoryGain / 13.3;
    HistoryCurve curve;
    DrawSeries(panel,
               CurveOf(panel, points, secondWidth, curve,
                       [&](Long second) { return scale * view.CoherenceAvg.at(second); }),
               CoherenceColour, style, secondWidth);
}

// The heart rate over 30 less 40 over 30: 0 at 40 beats a minute. A missing interval is drawn as 60.
double RateValue(double interval) {
    const double value = interval > 0 ? 2 / interval - 1.333 : -1;
    return value < 0 ? 0.667 : value;
}

// The mean over the seconds that the curve shows, however many the panel's width leaves of them.
void ShowMeanRate(const HistoryView& view, std::size_t shown) {
    double sum = 0;
    for (std::size_t i = 1; i < shown; ++i)
        sum += view.IbiAvg.at(AnalysisSecond - static_cast<Long>(i) + 1);
    if (sum <= 0)
        return;
    const std::int64_t rate = Round(60 / (sum / static_cast<double>(shown - 1)));
    view.Rate.Caption =
        LanguageText(TextHeartRate) + ": " + std::to_string(rate) + " " + LanguageText(TextBpm);
}

void DrawRateSeries(const HistoryView& view, Long points, double secondWidth) {
    const SeriesStyle style = StyleOf(HistoryStyle).Rate;
    Surface& panel = *view.Panel;
    if (style == SeriesStyle::None)
        return;
    const double scale = panel.Height() * HistoryGain / 200;
    HistoryCurve curve;
    const auto drawn = CurveOf(panel, points, secondWidth, curve,
                               [&](Long second) { return scale * RateValue(view.IbiAvg.at(second)); });
    DrawSeries(panel, drawn, RateColour, style, secondWidth);
    ShowMeanRate(view, drawn.size());
}

void DrawBothSeries(const HistoryView& view, double secondWidth) {
    const Long points = std::min<Long>(AnalysisSecond, HistorySpanSeconds);
    const bool coherenceWanted = !(TrainingActive != Off && FeedbackMode <= 1);
    const bool coherenceFirst = StyleOf(HistoryStyle).CoherenceFirst;
    if (coherenceFirst && coherenceWanted)
        DrawCoherenceSeries(view, points, secondWidth);
    DrawRateSeries(view, points, secondWidth);
    if (!coherenceFirst && coherenceWanted)
        DrawCoherenceSeries(view, points, secondWidth);
}

bool Changed(const HistoryShown& shown) {
    return AnalysisSecond != shown.LastSecond || HistorySpanSeconds != shown.LastSpan ||
           HistoryForceRedraw != Off || (ScaleDragging != Off && Round(HistoryGain) != shown.LastGain);
}

void DrawHistory(const HistoryView& view) {
    Surface& panel = *view.Panel;
    if (panel.Width() <= 0 || !Changed(view.Shown))
        return;
    panel.Clear();
    SetPanelFont(panel);
    panel.SetDrawWidth(1);
    const Colour foreground = panel.ForeColour();
    const double secondWidth = HistorySpanSeconds > 0 ? panel.Width() / HistorySpanSeconds : 0;
    // A style without the rate has no mean of it to tell.
    view.Rate.Visible = StyleOf(HistoryStyle).Rate != SeriesStyle::None;
    DrawScales(view);
    DrawTimes(panel, secondWidth);
    if (AnalysisSecond > 2) {
        panel.SetDrawWidth(2);
        DrawBothSeries(view, secondWidth);
        panel.SetDrawWidth(1);
        const double baseline = panel.TextHeight("0");
        panel.Line(PlotLeft(panel), baseline, panel.Width(), baseline, CurrentScheme().Grid);
    }
    panel.SetForeColour(foreground);
    view.Shown = {AnalysisSecond, static_cast<Integer>(Round(HistoryGain)), HistorySpanSeconds};
}

void PlaceHistoryCaptions(const HistoryView& view) {
    Surface& panel = *view.Panel;
    SetPanelFont(panel);
    const std::array<int, 3> texts{TextHistoryCoherence, TextHistoryDivider, TextHistoryHeartRate};
    const std::array<Colour, 3> colours{CoherenceColour, CurrentScheme().Caption, RateLabelColour};
    double left = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        PlaceCaption(view.Captions[i], panel, LanguageText(texts[i]), left, colours[i]);
        left += view.Captions[i].Width;
    }
    // As wide as the widest rate, so that the grid does not jump with its digits.
    const std::string shown = view.Rate.Caption;
    PlaceCaption(view.Rate, panel, LanguageText(TextHeartRate) + ": 000 " + LanguageText(TextBpm), 0,
                 RateLabelColour);
    view.Rate.Left = std::max(0.0, panel.Width() - view.Rate.Width);
    view.Rate.Caption = shown;
}

} // namespace

void DrawHistoryA() {
    DrawHistory(viewA);
    MoveGameMarker();
}
void DrawHistoryB() {
    DrawHistory(viewB);
}
void DrawHistoryCoherenceA(Long points, double secondWidth) {
    DrawCoherenceSeries(viewA, points, secondWidth);
}
void DrawHistoryCoherenceB(Long points, double secondWidth) {
    DrawCoherenceSeries(viewB, points, secondWidth);
}
void DrawHistoryRateA(Long points, double secondWidth) {
    DrawRateSeries(viewA, points, secondWidth);
}
void DrawHistoryRateB(Long points, double secondWidth) {
    DrawRateSeries(viewB, points, secondWidth);
}

void RedrawHistory() {
    HistoryForceRedraw = On;
    DrawHistoryA();
    DrawHistoryB();
    HistoryForceRedraw = Off;
}

void OpenHistoryPanel(Long second) {
    PaintModuleBackground(Module::History);
    PlaceHistoryCaptions(viewA);
    PlaceHistoryCaptions(viewB);
    if (second == 0)
        return;
    AnalysisSecond = second;
    RedrawHistory();
}

void DragHistoryScale(int button, double x, double y) {
    if (!ScaleDragAllowed())
        return;
    HistoryTrackRecord& track = HistoryTrack;
    if (button == 0) {
        track.DragX = static_cast<float>(x);
        AnchorGainDrag(track, y, HistoryGain, GainLimits);
        const double t = 100 * std::log(HistorySpanSeconds) / std::log(SpanBase);
        // The whole seconds of a limit miss its scale by a little.
        constexpr double Tolerance = 0.5;
        const bool inside = t >= LeastSpanScale - Tolerance && t <= MostSpanScale + Tolerance;
        track.DragSpan = track.DragSpanApplied = inside ? std::clamp(t, LeastSpanScale, MostSpanScale) : 100;
        return;
    }
    if (button != 1)
        return;
    ScaleDragging = On;
    const double s = MoveGainDrag(track, y, GainLimits);
    const double wanted = track.DragSpan + (x - track.DragX) * SpanStepsPerPixel;
    const double t = std::clamp(wanted, LeastSpanScale, MostSpanScale);
    if (t != wanted) {
        track.DragX = static_cast<float>(x);
        track.DragSpan = t;
    }
    if (s == track.DragGainApplied && t == track.DragSpanApplied)
        return;
    HistoryGain = GainOfScale(s);
    HistorySpanSeconds = static_cast<Integer>(Round(std::pow(SpanBase, t / 100)));
    track.DragGainApplied = s;
    track.DragSpanApplied = t;
    MakePassing(*picHisA, *picHisB);
    RefreshAnalysisSecond();
    RedrawHistory();
}

void EndHistoryDrag() {
    picHisA->SetPersistent(true);
    picHisB->SetPersistent(true);
    RedrawHistory();
    ScaleDragging = Off;
}

void SetHistoryStyle(int style) {
    HistoryStyle = static_cast<Integer>(std::clamp<int>(style, 1, HistoryStyleMax));
    RedrawHistory();
}

void ResetHistoryDisplay() {
    HistoryGain = 100;
    HistorySpanSeconds = 60;
    HistoryStyle = 3;
    HistoryForceRedraw = ScaleDragging = Off;
    HistoryTrack = {};
}

} // namespace pulselark
