#include "workspace/SceneCover.h"

#include "session/MainControls.h"
#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"
#include "workspace/TrainingArtwork.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace pulselark {

namespace {

constexpr int Corner = 8;

// A ridge of hills as a share of the height, by waves of three lengths.
QPainterPath Ridge(const QRectF& box, double level, double phase) {
    QPainterPath path(box.bottomLeft());
    constexpr int Steps = 64;
    for (int i = 0; i <= Steps; ++i) {
        const double t = i / static_cast<double>(Steps);
        const double wave = 0.08 * std::sin(6 * t + phase) + 0.04 * std::sin(15 * t + 2 * phase);
        path.lineTo(box.left() + t * box.width(), box.top() + (level + wave) * box.height());
    }
    path.lineTo(box.bottomRight());
    path.closeSubpath();
    return path;
}

} // namespace

SceneCover::SceneCover(QWidget* parent) : QAbstractButton(parent) {
    setObjectName("picRestoreGame");
    setFont(TextFont(14, 500));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    FocusRing::Of(window()).Watch(this, Corner, Ground::Form);
    hide();
    Mirror();
}

void SceneCover::Mirror() {
    setVisible(picRestoreGame.Visible && width() > 0);
    const QString caption = labRestoreGame.Caption.empty()
                                ? Text(TextScenery)
                                : QString::fromStdString(labRestoreGame.Caption).trimmed();
    if (caption == text())
        return;
    setText(caption);
    setAccessibleName(caption);
    setToolTip(caption);
    update();
}

void SceneCover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect()), Corner, Corner);
    painter.setClipPath(plate);
    painter.fillRect(rect(), TrainingColour::Well);
    const QRectF box(rect());
    QColor ridge = TrainingColour::Bell;
    double level = 0.55;
    for (const double alpha : {0.10, 0.16, 0.24}) {
        ridge.setAlphaF(static_cast<float>(underMouse() ? alpha * 1.4 : alpha));
        painter.fillPath(Ridge(box, level, level * 9), ridge);
        level += 0.14;
    }
    painter.setFont(font());
    painter.setPen(Qt::white);
    painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, text());
}

} // namespace pulselark
