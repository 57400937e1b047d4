#include "workspace/frmProgressBar.h"

#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QPainter>
#include <QProgressBar>

#include <algorithm>

namespace pulselark {

frmProgressBar::frmProgressBar(QWidget* window) : QWidget(window), bar_(new QProgressBar(this)) {
    setObjectName("frmProgressBar");
    setAccessibleName(Text(TextProgressLoading));
    resize(320, 88);
    bar_->setObjectName("picPB");
    bar_->setAccessibleName(Text(TextProgressLoading));
    bar_->setTextVisible(false);
    bar_->setGeometry(24, 54, width() - 48, 6);
    bar_->setStyleSheet(QString("QProgressBar { background: %1; border: none; border-radius: 3px; }"
                                "QProgressBar::chunk { background: %2; border-radius: 3px; }")
                            .arg(FormColour::Rule.name(), FormColour::Teal.name()));
    hide();
}

void frmProgressBar::SetCaption(const QString& caption) {
    caption_ = caption;
    bar_->setValue(0);
    setAccessibleName(caption);
    bar_->setAccessibleName(caption);
}

void frmProgressBar::Draw(double percent) {
    bar_->setValue(static_cast<int>(std::clamp(percent, 0.0, 100.0)));
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
                     QString("%1 %").arg(bar_->value()));
}

} // namespace pulselark
