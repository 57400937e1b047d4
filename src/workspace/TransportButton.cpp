#include "workspace/TransportButton.h"

#include "workspace/FocusRing.h"
#include "workspace/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace pulselark {

namespace {

constexpr QColor RecordLamp(0xFF, 0x6B, 0x6B);
constexpr QColor SilentLamp(0x8A, 0x8F, 0x98);

} // namespace

TransportButton::TransportButton(const char* name, Icon icon, QWidget* parent)
    : QAbstractButton(parent), icon_(icon) {
    setObjectName(name);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void TransportButton::SetDiameter(int diameter) {
    setFixedSize(diameter, diameter);
    FocusRing::Of(window()).Watch(this, diameter / 2, Ground::Bar);
}

void TransportButton::SetState(bool available, bool running, bool lifted) {
    if (available == available_ && running == running_ && lifted == lifted_)
        return;
    available_ = available;
    running_ = running;
    lifted_ = lifted;
    update();
}

void TransportButton::SetLamp(bool beat, bool silent) {
    if (beat == beat_ && silent == silent_)
        return;
    beat_ = beat;
    silent_ = silent;
    update();
}

// A white square in a red circle, within a ring.
void TransportButton::PaintRecording(QPainter& painter) const {
    constexpr double Ring = 2;
    const QRectF disc = rect();
    painter.setPen(Qt::NoPen);
    painter.setBrush(silent_ ? SilentLamp : RecordLamp);
    painter.drawEllipse(disc.adjusted(Ring + 1, Ring + 1, -Ring - 1, -Ring - 1));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(silent_ ? SilentLamp : beat_ ? QColor(Qt::white) : RecordLamp.darker(190), Ring));
    painter.drawEllipse(disc.adjusted(Ring / 2, Ring / 2, -Ring / 2, -Ring / 2));
    const double side = std::round(disc.width() * (pressed_ ? 0.28 : 0.3));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(disc.center().x() - side / 2, disc.center().y() - side / 2, side, side),
                            1.5, 1.5);
}

void TransportButton::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (icon_ == Icon::Record && running_) {
        PaintRecording(painter);
        return;
    }
    const QRectF disc = rect();
    const bool lit = available_ && running_;
    QColor plate = look.RaisedHover;
    if (lit)
        plate = look.Running;
    else if (available_ && pressed_)
        plate = look.Bar;
    else if (available_ && lifted_)
        plate = look.RaisedPressed;
    painter.setBrush(plate);
    painter.setPen(QPen(lit ? plate : QColor(255, 255, 255, available_ ? 61 : 23), 1));
    painter.drawEllipse(disc.adjusted(0.5, 0.5, -0.5, -0.5));

    QColor glyph = icon_ == Icon::Record ? RecordLamp : look.BarText;
    if (lit)
        glyph = look.Bar;
    painter.setOpacity(available_ ? 1.0 : 0.38);
    const double side = disc.width() * 0.5;
    PaintIcon(
        painter, icon_,
        QRectF(disc.center().x() - side / 2, disc.center().y() - side / 2 + (pressed_ ? 1 : 0), side, side),
        glyph);
}

void TransportButton::mousePressEvent(QMouseEvent* event) {
    pressed_ = available_ && (event->button() == Qt::LeftButton || event->button() == Qt::RightButton);
    update();
    if (pressed_)
        emit PressedDown();
}

void TransportButton::mouseReleaseEvent(QMouseEvent* event) {
    const bool taken = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    update();
    if (taken)
        emit ReleasedWith(event->button() == Qt::LeftButton ? LeftButton : RightButton);
}

void TransportButton::keyPressEvent(QKeyEvent* event) {
    const bool activates =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!activates || !available_) {
        event->ignore(); // the window has a use for it
        return;
    }
    emit ReleasedWith(keyButton_);
}

void TransportButton::enterEvent(QEnterEvent* /*event*/) {
    emit Hovered(true);
}

void TransportButton::leaveEvent(QEvent* /*event*/) {
    emit Hovered(false);
}

} // namespace pulselark
