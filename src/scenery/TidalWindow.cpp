#include "scenery/TidalWindow.h"

#include "scenery/TidalPicture.h"

#include <QPainter>

namespace pulselark {

TidalWindow::TidalWindow() : PartnerWindow("TidalRunner") {
    setMinimumSize(320, 240);
    resize(1000, 680);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TidalWindow::Take(const LinkMessage& message) {
    if (state_.Take(message)) {
        setAccessibleDescription(DescribeTidal(state_));
        update();
    }
    Do(orders_.Take(message), orders_.Place());
}

void TidalWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintTidal(painter, size(), state_);
}

} // namespace pulselark
