#include "workspace/TrainingArtwork.h"

#include "analysis/CoherenceBins.h"
#include "feedback/ggz.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr double WellPadding = 16;
constexpr double Corner = 8;

void PaintScoreWell(QPainter& painter, const QRectF& well, const QRectF& track) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(TrainingColour::Well);
    painter.drawRoundedRect(well, Corner, Corner);
    painter.fillRect(track, TrainingColour::Track);
    const double reach = std::min(5.0, track.left() - well.left() - 2);
    for (const double share : {0.25, 0.5, 0.75, 1.0}) {
        const double y = std::round(track.bottom() - share * track.height());
        painter.fillRect(QRectF(track.left() - reach, y, track.width() + 2 * reach, 1),
                         TrainingColour::TrackTick);
    }
}

} // namespace

TrainingParts TrainingPartsFor(const QSize& panel) {
    const double wide = panel.width();
    const double high = panel.height();
    // A narrow panel has no room for the full padding between the two wells.
    const double padding = std::clamp(wide * 0.016 - 3, 4.0, WellPadding);
    const double top = high * (BarBase - BarHeight);
    const double tall = high * BarHeight;
    const auto wellOf = [padding](const QRectF& bars) {
        return bars.adjusted(-padding, -padding, padding, padding);
    };
    TrainingParts parts;
    parts.Bars = QRectF(wide * (BarRowCentre - BarRowSpan / 2), top, wide * BarRowSpan, tall);
    parts.BarWell = wellOf(parts.Bars);
    for (std::size_t score = 0; score < 2; ++score) {
        parts.Tracks[score] = QRectF(wide * ScoreLeft[score], top, wide * ScoreWidth, tall);
        parts.ScoreWells[score] = wellOf(parts.Tracks[score]);
    }
    const double left = std::max(wide * 0.041, 16.0);
    const double right = std::min(left + std::max(560.0, wide * 0.42), parts.BarWell.left() - 24);
    parts.Left = QRectF(left, 0, right - left, high);
    // The figures below the bars stand above the rule.
    constexpr double Figures = 28;
    parts.Rule =
        std::max(high - (panel.width() >= FullPanelWidth ? 64 : 44), parts.BarWell.bottom() + Figures);
    return parts;
}

std::array<QColor, 2> TrainingBackground(int background) {
    constexpr std::array<std::array<QColor, 2>, 3> Backgrounds{
        {{QColor(0xF7, 0xF9, 0xFE), QColor(0xE9, 0xEE, 0xFA)},
         {QColor(0xFB, 0xF8, 0xF1), QColor(0xF1, 0xE9, 0xDA)},
         {QColor(0xF3, 0xFA, 0xF7), QColor(0xDD, 0xEF, 0xE8)}}};
    return Backgrounds[static_cast<std::size_t>(std::clamp(background, 0, 2))];
}

void PaintBellArea(QPainter& painter, const QRectF& box) {
    constexpr int Reach = 30;
    QPainterPath area(box.bottomLeft());
    for (int i = -Reach; i <= Reach; ++i) {
        area.lineTo(box.left() + box.width() * (i + Reach) / (2 * Reach),
                    box.bottom() - box.height() * BellCurve(i));
    }
    area.lineTo(box.bottomRight());
    area.closeSubpath();
    QLinearGradient fill(box.topLeft(), box.bottomLeft());
    QColor top = TrainingColour::BellTop;
    QColor bottom = TrainingColour::BellBottom;
    top.setAlphaF(0.45F);
    bottom.setAlphaF(0.45F);
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.fillPath(area, fill);
}

void PaintTrainingArtwork(QPainter& painter, const QSize& panel, int background) {
    const TrainingParts parts = TrainingPartsFor(panel);
    const std::array<QColor, 2> ends = TrainingBackground(background);
    QLinearGradient paper(0, 0, 0, panel.height());
    paper.setColorAt(0, ends[0]);
    paper.setColorAt(1, ends[1]);
    painter.fillRect(QRect(QPoint(0, 0), panel), paper);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TrainingColour::Well);
    painter.drawRoundedRect(parts.BarWell, Corner, Corner);
    PaintBellArea(painter, parts.Bars);
    QColor base = TrainingColour::Bell;
    base.setAlphaF(0.6F);
    painter.fillRect(QRectF(parts.Bars.left(), std::round(parts.Bars.bottom()), parts.Bars.width(), 1), base);
    PaintScoreWell(painter, parts.ScoreWells[0], parts.Tracks[0]);
    PaintScoreWell(painter, parts.ScoreWells[1], parts.Tracks[1]);
}

} // namespace pulselark
