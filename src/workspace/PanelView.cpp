#include "workspace/PanelView.h"

#include "analysis/ColourSchemes.h"
#include "analysis/PanelDrawing.h"
#include "platform/qt/QtColour.h"
#include "workspace/Look.h"

#include <QMouseEvent>
#include <QPainter>

#include <array>
#include <utility>

namespace pulselark {

namespace {

// Text of the screen, moved until it can be read on the panels' background.
QColor PanelInk(Colour colour) {
    const Image& back = picModBGSrc(ColourSchemeIndex);
    const int middle = back.Width / 2;
    const std::array<Colour, 3> backdrop{back.PixelAt(middle, 0), back.PixelAt(middle, back.Height / 2),
                                         back.PixelAt(middle, back.Height - 1)};
    return ToQColor(InkOn(colour, backdrop.data(), static_cast<int>(backdrop.size())));
}

QColor FrameColour() {
    const bool dark = RedOf(PanelBackColour()) < 128;
    return ToQColor(dark ? CurrentScheme().Grid : CurrentScheme().Text);
}

} // namespace

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
    const int frame = framed_ ? 2 : 0;
    const QSize size = shown ? QSize(rect.width() - frame, rect.height() - frame) : QSize(0, 0);
    surface_.Resize(size.width(), size.height(), devicePixelRatioF());
    if (twin_.OnDrawn)
        twin_.Resize(size.width(), size.height(), devicePixelRatioF());
}

void PanelView::Mirror() {
    QString words;
    for (const CaptionLabel* caption : captions_) {
        if (caption->Visible)
            words += QString::fromStdString(caption->Caption) + "\n";
    }
    for (const Label* notice : notices_) {
        if (notice->Visible)
            words += QString::fromStdString(notice->Caption) + "\n";
    }
    if (words == words_)
        return;
    words_ = words;
    setAccessibleDescription(words_);
    update();
}

void PanelView::PaintNotice(QPainter& painter, const QString& text) const {
    painter.setFont(TextFont(13));
    const QRectF words = painter.boundingRect(QRectF(rect()), Qt::AlignCenter | Qt::TextWordWrap, text);
    QColor back = ToQColor(PanelBackColour());
    back.setAlphaF(0.86F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(back);
    painter.drawRoundedRect(words.adjusted(-8, -4, 8, 4), 4, 4);
    painter.setPen(PanelInk(CurrentScheme().Text));
    painter.drawText(QRectF(rect()), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void PanelView::PaintCaption(QPainter& painter, const CaptionLabel& caption, Qt::Alignment alignment) const {
    constexpr double Padding = 4;
    const QRectF plate(caption.Left, 0, caption.Width, caption.Height);
    QColor back = ToQColor(PanelBackColour());
    back.setAlphaF(0.86F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(back);
    painter.drawRoundedRect(plate, 4, 4);
    painter.setPen(PanelInk(caption.ForeColour));
    const QFont font = PanelFont("Arial", 8, false);
    const QFontMetricsF metrics(font);
    const QString text = QString::fromStdString(caption.Caption);
    const double room = plate.width() - 2 * Padding - metrics.horizontalAdvance(text);
    // The capitals stand in the middle of the plate, as printed text does in its line.
    painter.setFont(font);
    painter.drawText(QPointF(plate.left() + Padding + (alignment == Qt::AlignRight ? room : room / 2),
                             (plate.height() + metrics.capHeight()) / 2),
                     text);
}

void PanelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (framed_) {
        painter.fillRect(rect(), FrameColour());
        painter.drawImage(QPointF(1, 1), shown_->Picture());
        return;
    }
    painter.drawImage(QPointF(0, 0), shown_->Picture());
    painter.setRenderHint(QPainter::Antialiasing);
    // Captions give way before anything else when a panel is narrow: the one at the right stays, the others
    // where they meet neither it nor the edge.
    const CaptionLabel* rightmost = captions_.size() > 1 ? captions_.back() : nullptr;
    const double room = rightmost != nullptr && rightmost->Visible ? rightmost->Left - 4 : width();
    for (const CaptionLabel* caption : captions_) {
        if (caption == nullptr)
            continue;
        const bool fits = caption == rightmost || caption->Left + caption->Width <= room;
        if (caption->Visible && !caption->Caption.empty() && fits)
            PaintCaption(painter, *caption, caption == rightmost ? Qt::AlignRight : Qt::AlignHCenter);
    }
    for (const Label* notice : notices_) {
        if (notice->Visible && !notice->Caption.empty()) {
            PaintNotice(painter, QString::fromStdString(notice->Caption));
            break;
        }
    }
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

void PanelView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event); // its second press is one like any other
    if (event->button() == Qt::LeftButton)
        emit DoubleClicked();
}

} // namespace pulselark
