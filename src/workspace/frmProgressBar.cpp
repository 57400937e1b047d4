#include "workspace/frmProgressBar.h"

#include "workspace/FloatingForm.h"
#include "workspace/FormPaint.h"
#include "workspace/Look.h"
#include "workspace/Shadow.h"
#include "workspace/Texts.h"

#include <QPainter>
#include <QProgressBar>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int Padding = 24;
constexpr int BarHeight = 6;
constexpr double BarRadius = 3;

/// The bar, with round ends.
class RoundBar final : public QProgressBar {
public:
    using QProgressBar::QProgressBar;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(TrackColour);
        painter.drawRoundedRect(rect(), BarRadius, BarRadius);
        if (value() <= minimum())
            return;
        const double done = static_cast<double>(value() - minimum()) / (maximum() - minimum());
        painter.setBrush(FormColour::Teal);
        painter.drawRoundedRect(QRectF(0, 0, std::max<double>(BarHeight, width() * done), height()),
                                BarRadius, BarRadius);
    }
};

} // namespace

frmProgressBar::frmProgressBar(QWidget* window) : QWidget(window), bar_(new RoundBar(this)) {
    setObjectName("frmProgressBar");
    setAccessibleName(Text(TextProgressLoading));
    resize(320, 88);
    bar_->setObjectName("picPB");
    bar_->setAccessibleName(Text(TextProgressLoading));
    bar_->setTextVisible(false);
    bar_->setGeometry(Padding, height() - Padding - BarHeight, width() - 2 * Padding, BarHeight);
    hide();
    new ShadowBelow(this, window, FormShadow);
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
    if (isHidden()) {
        raise();
        show();
    }
    update();
}

void frmProgressBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintFormPaper(painter, rect(), 0);
    painter.setPen(FormColour::Ink);
    painter.setFont(TextFont(13));
    const QString percent = QString("%1 %").arg(bar_->value());
    const int room = width() - 2 * Padding - 12 - painter.fontMetrics().horizontalAdvance("100 %");
    const QRectF line(Padding, 22, width() - 2 * Padding, 20);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(caption_, Qt::ElideMiddle, room));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, percent);
}

} // namespace pulselark
