#include "workspace/SoundPad.h"

#include "feedback/SoundTester.h"
#include "platform/qt/QtColour.h"
#include "workspace/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace pulselark {

namespace {

constexpr int Corner = 4;

} // namespace

SoundPad::SoundPad(QWidget* parent) : QWidget(parent) {
    setObjectName("picST");
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::SizeAllCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SoundPad::Move(double dx, double dy) {
    emit Dragged(dx, dy);
    Draw();
}

void SoundPad::Draw() {
    surface_.SetForeColour(
        MakeColour(FormColour::Teal.red(), FormColour::Teal.green(), FormColour::Teal.blue()));
    surface_.SetDrawWidth(2);
    DrawSoundTester(surface_);
    update();
}

void SoundPad::resizeEvent(QResizeEvent* /*event*/) {
    surface_.Resize(width() - 2, height() - 2, devicePixelRatioF());
    QImage paper((QSizeF(size() - QSize(2, 2)) * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
    paper.setDevicePixelRatio(devicePixelRatioF());
    paper.fill(FormColour::Card);
    surface_.StoreImage(paper);
    Draw();
}

void SoundPad::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath edge;
    edge.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Corner, Corner);
    painter.setClipPath(edge);
    painter.drawImage(QPointF(1, 1), surface_.Picture());
    painter.setClipping(false);
    painter.setPen(FormColour::Edge);
    painter.drawPath(edge);
}

void SoundPad::mousePressEvent(QMouseEvent* event) {
    last_ = event->position();
}

void SoundPad::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) == 0)
        return;
    const QPointF moved = event->position() - last_;
    last_ = event->position();
    Move(moved.x(), moved.y());
}

void SoundPad::keyPressEvent(QKeyEvent* event) {
    constexpr double Step = 4;
    switch (event->key()) {
    case Qt::Key_Left:
        Move(-Step, 0);
        break;
    case Qt::Key_Right:
        Move(Step, 0);
        break;
    case Qt::Key_Up:
        Move(0, -Step);
        break;
    case Qt::Key_Down:
        Move(0, Step);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace pulselark
