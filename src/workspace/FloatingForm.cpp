#include "workspace/FloatingForm.h"

#include "workspace/Look.h"
#include "workspace/Motion.h"
#include "workspace/Shadow.h"

#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int Radius = 12;

// What lies outside the round corners is not there at all, where the desktop has no compositor either.
QBitmap OutlineOf(const QSize& size) {
    QBitmap outline(size);
    outline.clear();
    QPainter painter(&outline);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(0, 0), size - QSize(1, 1)), Radius, Radius);
    return outline;
}

} // namespace

void PaintFormPaper(QPainter& painter, const QRect& form, int titleRow) {
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(QRectF(form).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    painter.fillPath(outline, FormColour::Paper);
    if (titleRow > 0) {
        painter.save();
        painter.setClipRect(QRect(form.left(), form.top(), form.width(), titleRow));
        painter.fillPath(outline, FormColour::Card);
        painter.restore();
        painter.fillRect(QRectF(form.left(), form.top() + titleRow - 1, form.width(), 1), FormColour::Rule);
    }
    painter.setPen(QPen(FormColour::Edge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

FloatingForm::FloatingForm(QWidget* owner, const QString& name)
    : QDialog(owner, Qt::Dialog | Qt::FramelessWindowHint) {
    setObjectName(name);
    setAttribute(Qt::WA_TranslucentBackground); // for the round corners
    if (owner != nullptr)
        shadow_ = new ShadowBelow(this, owner->window(), FormShadow);
}

FloatingForm::~FloatingForm() {
    delete shadow_.data();
}

void FloatingForm::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintFormPaper(painter, rect(), titleRow_);
}

void FloatingForm::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    setMask(OutlineOf(size()));
}

void FloatingForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (placed_ || event->spontaneous())
        return;
    placed_ = true;
    if (const QWidget* owner = parentWidget(); owner != nullptr && owner->isVisible())
        move(owner->window()->frameGeometry().center() - rect().center());
    KeepOnScreen();
    FadeIn(*this, DialogTime, DialogRise);
}

void FloatingForm::KeepOnScreen() {
    if (screen() == nullptr)
        return;
    const QRect room = screen()->availableGeometry();
    const QPoint last(std::max(room.left(), room.left() + room.width() - width()),
                      std::max(room.top(), room.top() + room.height() - height()));
    const QPoint place(std::clamp(x(), room.left(), last.x()), std::clamp(y(), room.top(), last.y()));
    if (place != pos())
        move(place);
}

// The desktop moves the window; where it has nobody who does, the window follows the mouse by itself.
void FloatingForm::mousePressEvent(QMouseEvent* event) {
    const bool onGrip = titleRow_ == 0 || event->position().y() < titleRow_;
    if (event->button() != Qt::LeftButton || !onGrip)
        return;
    if (windowHandle() != nullptr && windowHandle()->startSystemMove())
        return;
    dragged_ = true;
    grip_ = event->position().toPoint();
}

void FloatingForm::mouseMoveEvent(QMouseEvent* event) {
    if (dragged_)
        move(event->globalPosition().toPoint() - grip_);
}

void FloatingForm::mouseReleaseEvent(QMouseEvent* /*event*/) {
    dragged_ = false;
}

} // namespace pulselark
