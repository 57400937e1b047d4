#include "workspace/MonitorCards.h"

#include "workspace/FormPaint.h"
#include "workspace/Look.h"
#include "workspace/MonitorPictures.h"
#include "workspace/Motion.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace pulselark {

namespace {

constexpr int RowHeight = 52;
constexpr int RowPadding = 12;
constexpr int RowPicture = 24;
constexpr int Gap = 12;

QRectF EdgeOf(const QWidget& control, double width) {
    return QRectF(control.rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
}

// The tick of what is chosen, in a disc at the upper right.
void PaintChosen(QPainter& painter, const QPointF& centre) {
    constexpr double Radius = 9;
    painter.setPen(Qt::NoPen);
    painter.setBrush(FormColour::Teal);
    painter.drawEllipse(centre, Radius, Radius);
    PaintTick(painter, QRectF(centre.x() - Radius, centre.y() - Radius, 2 * Radius, 2 * Radius), Qt::white);
}

} // namespace

// ---- Picture ----

DsuCard::DsuCard(int picture, QWidget* parent) : QAbstractButton(parent), picture_(picture) {
    setObjectName(QString("picDSU%1").arg(picture));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setFont(TextFont(13, 500));
    setFixedSize(Side, Side);
    setMouseTracking(true);
}

void DsuCard::SetCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
    update();
}

void DsuCard::SetMarks(bool chosen, bool lit) {
    if (chosen == chosen_ && lit == lit_)
        return;
    chosen_ = chosen;
    lit_ = lit;
    update();
}

void DsuCard::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit PressedWith((event->modifiers() & Qt::ShiftModifier) != 0);
}

void DsuCard::keyPressEvent(QKeyEvent* event) {
    const bool press =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (press && !event->isAutoRepeat())
        emit PressedWith((event->modifiers() & Qt::ShiftModifier) != 0);
    else
        QAbstractButton::keyPressEvent(event);
}

void DsuCard::enterEvent(QEnterEvent* /*event*/) {
    emit PointedAt(true);
}

void DsuCard::leaveEvent(QEvent* /*event*/) {
    emit PointedAt(false);
}

void DsuCard::paintEvent(QPaintEvent* /*event*/) {
    constexpr int CaptionHeight = 36;
    QPainter painter(this);
    BeginControl(painter, *this);
    const double edge = chosen_ ? 2 : 1;
    painter.setPen(QPen(chosen_ || lit_ ? FormColour::Teal : FormColour::Edge, edge));
    painter.setBrush(lit_ ? HoverPlate : FormColour::Card);
    painter.drawRoundedRect(EdgeOf(*this, edge), 8, 8);
    PaintDsuPicture(painter, picture_, QRectF(24, 14, Side - 48, Side - CaptionHeight - 18));
    painter.setPen(FormColour::Ink);
    painter.drawText(QRect(8, Side - CaptionHeight, Side - 16, CaptionHeight - 6), Qt::AlignCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, Side - 16));
    if (chosen_)
        PaintChosen(painter, QPointF(Side - 17, 17));
}

// ---- Row ----

MonitorRow::MonitorRow(int monitor, QWidget* parent)
    : QAbstractButton(parent), monitor_(monitor), hover_(new HoverLight(this)) {
    setObjectName(QString("labMonitor%1").arg(monitor));
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setFont(TextFont(13, 500));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MonitorRow::SetWords(const QString& name, const QString& words) {
    setText(name);
    words_ = words;
    setAccessibleName(name);
    setAccessibleDescription(words);
    setToolTip(TipLines(words)); // where the row has no room for them
    updateGeometry();
    update();
}

QSize MonitorRow::sizeHint() const {
    return {300, RowHeight};
}

void MonitorRow::paintEvent(QPaintEvent* /*event*/) {
    constexpr int TickRoom = 32;
    QPainter painter(this);
    BeginControl(painter, *this);
    const double edge = isChecked() ? 2 : 1;
    painter.setPen(QPen(isChecked() ? FormColour::Teal : FormColour::Rule, edge));
    painter.setBrush(isDown() ? PressedPlate : hover_->Between(FormColour::Card, HoverPlate));
    painter.drawRoundedRect(EdgeOf(*this, edge), 8, 8);
    PaintPlainMonitor(painter, monitor_,
                      QRectF(RowPadding, (height() - RowPicture) / 2.0, RowPicture, RowPicture));
    const int left = RowPadding + RowPicture + Gap;
    const int room = width() - left - TickRoom;
    painter.setPen(FormColour::Ink);
    painter.drawText(QRect(left, 7, room, 20), Qt::AlignLeft | Qt::AlignVCenter, text());
    painter.setFont(TextFont(12));
    painter.setPen(FormColour::Hint);
    painter.drawText(QRect(left, 27, room, 18), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(TextFont(12)).elidedText(words_, Qt::ElideRight, room));
    if (isChecked())
        PaintChosen(painter, QPointF(width() - 20, height() / 2.0));
}

} // namespace pulselark
