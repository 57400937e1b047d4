#include "workspace/QsEntry.h"

#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"

#include <QPainter>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int Padding = 12;
constexpr int IconSize = 16;
constexpr int IconGap = 8;
constexpr int PlateHeight = 32;
constexpr int PlateRadius = 6;

} // namespace

QsEntry::QsEntry(int index, Icon icon, QWidget* parent)
    : QAbstractButton(parent), icon_(icon), hover_(new HoverLight(this)) {
    setObjectName(QString("labQSMenu%1").arg(index));
    setFont(TextFont(13));
    setFocusPolicy(Qt::TabFocus);
    FocusRing::Of(window()).Watch(this, PlateRadius, Ground::Bar);
    connect(this, &QAbstractButton::pressed, this, [this] { emit Pointed(QsPointer::Pressed); });
    connect(this, &QAbstractButton::released, this,
            [this] { emit Pointed(underMouse() ? QsPointer::Over : QsPointer::Away); });
}

void QsEntry::SetCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
    setToolTip(caption);
    update();
}

int QsEntry::WidthWith(bool words) const {
    const int room = words ? IconGap + fontMetrics().horizontalAdvance(text()) : 0;
    return 2 * Padding + IconSize + room;
}

void QsEntry::Place(int left, int barHeight, bool words) {
    words_ = words;
    const int high = std::min(PlateHeight, barHeight - 8);
    setGeometry(left, (barHeight - high) / 2, WidthWith(words), high);
    update();
}

void QsEntry::SetInk(const QColor& ink, bool resting) {
    const QColor wanted = resting ? QColor() : ink;
    if (wanted == ink_)
        return;
    ink_ = wanted;
    update();
}

void QsEntry::enterEvent(QEnterEvent* /*event*/) {
    emit Pointed(QsPointer::Over);
    update();
}

void QsEntry::leaveEvent(QEvent* /*event*/) {
    emit Pointed(QsPointer::Away);
    update();
}

void QsEntry::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lifted = isEnabled() && (underMouse() || isDown());
    if (lifted || hover_->Level() > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? look.RaisedPressed : hover_->On(look.RaisedHover));
        painter.drawRoundedRect(rect(), PlateRadius, PlateRadius);
    }
    const QColor ink = lifted && ink_.isValid() ? ink_ : look.BarText;
    painter.setOpacity(isEnabled() ? 1 : 0.38);
    PaintIcon(painter, icon_, QRectF(Padding, (height() - IconSize) / 2.0, IconSize, IconSize), ink);
    if (!words_)
        return;
    painter.setPen(ink);
    painter.drawText(rect().adjusted(Padding + IconSize + IconGap, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
}

} // namespace pulselark
