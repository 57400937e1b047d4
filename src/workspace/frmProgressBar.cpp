#include "workspace/frmProgressBar.h"

#include "workspace/Look.h"

#include <QPainter>

#include <algorithm>

namespace pulselark {

frmProgressBar::frmProgressBar(QWidget* window) : QWidget(window) {
    setObjectName("frmProgressBar");
    resize(320, 88);
    hide();
}

void frmProgressBar::SetCaption(const QString& caption) {
    caption_ = caption;
    percent_ = 0;
    setAccessibleName(caption);
}

void frmProgressBar::Draw(double percent) {
    percent_ = std::clamp(percent, 0.0, 100.0);
    const QWidget* window = parentWidget();
    move((window->width() - width()) / 2, (window->height() - height()) / 2);
    raise();
    show();
    update();
}

void frmProgressBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(FormColour::Rule);
    painter.setBrush(FormColour::Paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);
    painter.setPen(FormColour::Ink);
    painter.setFont(TextFont(13));
    painter.drawText(QRectF(24, 20, width() - 48, 20), Qt::AlignLeft | Qt::AlignVCenter, caption_);
    painter.drawText(QRectF(24, 20, width() - 48, 20), Qt::AlignRight | Qt::AlignVCenter,
                     QString("%1 %").arg(static_cast<int>(percent_)));
    const QRectF bar(24, 54, width() - 48, 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(FormColour::Rule);
    painter.drawRoundedRect(bar, 3, 3);
    painter.setBrush(FormColour::Teal);
    painter.drawRoundedRect(QRectF(bar.left(), bar.top(), bar.width() * percent_ / 100, bar.height()), 3, 3);
}

} // namespace pulselark
