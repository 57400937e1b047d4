#include "workspace/PanelView.h"

#include <QMouseEvent>
#include <QPainter>

namespace pulselark {

PanelView::PanelView(const char* name, bool withTwin, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    surface_.OnDrawn = [this] { Show(surface_); };
    if (withTwin)
        twin_.OnDrawn = [this] { Show(twin_); };
}

void PanelView::Show(const QtSurface& surface) {
    shown_ = &surface;
    update();
}

void PanelView::Place(const QRect& rect, bool shown) {
    setVisible(shown);
    setGeometry(rect);
    const QSize size = shown ? rect.size() : QSize(0, 0);
    surface_.Resize(size.width(), size.height(), devicePixelRatioF());
    if (twin_.OnDrawn)
        twin_.Resize(size.width(), size.height(), devicePixelRatioF());
}

void PanelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawImage(QPointF(0, 0), shown_->Picture());
}

void PanelView::mouseMoveEvent(QMouseEvent* event) {
    const int button = (event->buttons() & Qt::LeftButton) != 0 ? 1 : 0;
    emit Moved(button, event->position().x(), height() - event->position().y());
}

void PanelView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Pressed(event->position().x(), height() - event->position().y());
}

void PanelView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Released();
}

} // namespace pulselark
