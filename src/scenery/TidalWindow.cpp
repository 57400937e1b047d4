#include "scenery/TidalWindow.h"

#include "scenery/TidalPicture.h"

#include <QPainter>

namespace pulselark {

TidalWindow::TidalWindow() : PartnerWindow("TidalRunner") {
    setMinimumSize(320, 240);
    resize(1000, 680);
    setAttribute(Qt::WA_OpaquePaintEvent);
    constexpr int Gathering = 33; // milliseconds
    redraw_.setSingleShot(true);
    redraw_.setInterval(Gathering);
    connect(&redraw_, &QTimer::timeout, this, [this] {
        setAccessibleDescription(DescribeTidal(state_));
        update();
    });
}

void TidalWindow::Take(const LinkMessage& message) {
    if (state_.Take(message) && !redraw_.isActive())
        redraw_.start();
    Do(orders_.Take(message), orders_.Place());
}

void TidalWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintTidal(painter, size(), state_);
}

} // namespace pulselark
