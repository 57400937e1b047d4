#include "workspace/Shadow.h"

#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace pulselark {

namespace {

// The blur is two standard deviations; a little beyond it nothing is left to be seen.
int ReachOf(const ShadowKind& kind) {
    return kind.Blur + kind.Blur / 4;
}

// One corner: the upper left quarter of the shadow of a large box, whose corner lies in the middle.
QImage CornerOf(const ShadowKind& kind) {
    const int reach = ReachOf(kind);
    const double deviation = kind.Blur / 2.0;
    std::vector<double> rise;
    rise.reserve(2 * static_cast<std::size_t>(reach));
    for (int i = 0; i < 2 * reach; ++i)
        rise.push_back(std::erfc((reach - i - 0.5) / (deviation * std::sqrt(2.0))) / 2);
    QImage corner(2 * reach, 2 * reach, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < corner.height(); ++y) {
        for (int x = 0; x < corner.width(); ++x) {
            const double dark =
                kind.Strength * rise[static_cast<std::size_t>(x)] * rise[static_cast<std::size_t>(y)];
            corner.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * dark))));
        }
    }
    return corner;
}

const QImage& KeptCorner(const ShadowKind& kind) {
    static std::vector<std::pair<ShadowKind, QImage>> corners;
    for (const auto& [known, corner] : corners) {
        if (known == kind)
            return corner;
    }
    return corners.emplace_back(kind, CornerOf(kind)).second;
}

// The corner four times, and its last row and column drawn out between.
void PaintShadow(QPainter& painter, const QRect& box, const ShadowKind& kind) {
    const QImage& corner = KeptCorner(kind);
    const int side = corner.width();
    const QRect whole = box.adjusted(-side / 2, -side / 2, side / 2, side / 2);
    const int wide = std::min(side, whole.width() / 2);
    const int high = std::min(side, whole.height() / 2);
    for (const bool right : {false, true}) {
        for (const bool low : {false, true}) {
            painter.save();
            painter.translate(right ? whole.right() + 1 : whole.left(),
                              low ? whole.bottom() + 1 : whole.top());
            painter.scale(right ? -1 : 1, low ? -1 : 1);
            painter.drawImage(QRectF(0, 0, wide, high), corner, QRectF(0, 0, wide, high));
            if (!right)
                painter.drawImage(QRectF(wide, 0, whole.width() - 2 * wide, high), corner,
                                  QRectF(wide - 1, 0, 1, high));
            if (!low)
                painter.drawImage(QRectF(0, high, wide, whole.height() - 2 * high), corner,
                                  QRectF(0, high - 1, wide, 1));
            painter.restore();
        }
    }
}

// A desktop that keeps to itself where its windows stand throws their shadows itself.
bool CanFollow(const QWidget& caster) {
    return !caster.isWindow() || !QGuiApplication::platformName().startsWith("wayland");
}

} // namespace

ShadowBelow::ShadowBelow(QWidget* caster, QWidget* owner, const ShadowKind& kind)
    : QWidget(owner), caster_(caster), kind_(kind) {
    setObjectName(caster->objectName() + "Shadow");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    caster->installEventFilter(this);
    hide();
    Follow();
}

void ShadowBelow::SetKind(const ShadowKind& kind) {
    if (kind == kind_)
        return;
    kind_ = kind;
    Follow();
    update();
}

void ShadowBelow::Restack() {
    if (caster_->isWindow())
        raise();
    else
        stackUnder(caster_);
}

void ShadowBelow::Follow() {
    const int reach = ReachOf(kind_);
    const QPoint corner =
        caster_->isWindow() ? parentWidget()->mapFromGlobal(caster_->pos()) : caster_->pos();
    setGeometry(
        QRect(corner, caster_->size()).adjusted(-reach, -reach + kind_.Drop, reach, reach + kind_.Drop));
}

bool ShadowBelow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != caster_)
        return false;
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        Follow();
        break;
    case QEvent::Show:
        if (!CanFollow(*caster_))
            break;
        Follow();
        Restack();
        show();
        break;
    case QEvent::Hide:
        hide();
        break;
    default:
        break;
    }
    return false;
}

void ShadowBelow::paintEvent(QPaintEvent* /*event*/) {
    const int reach = ReachOf(kind_);
    QPainter painter(this);
    PaintShadow(painter, rect().adjusted(reach, reach, -reach, -reach), kind_);
}

} // namespace pulselark
