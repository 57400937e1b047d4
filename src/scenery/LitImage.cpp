#include "scenery/LitImage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pulselark {

namespace {

// Both pictures have alpha multiplied in or none at all, so the four bytes mix alike. Weight 0 to 256.
void Mix(const std::uint32_t* from, const std::uint32_t* to, std::uint32_t* out, int count, unsigned weight) {
    constexpr std::uint32_t Even = 0x00FF00FF;
    const std::uint32_t rest = 256 - weight;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t low = ((from[i] & Even) * rest + (to[i] & Even) * weight) >> 8;
        const std::uint32_t high = ((from[i] >> 8) & Even) * rest + ((to[i] >> 8) & Even) * weight;
        out[i] = (low & Even) | (high & ~Even);
    }
}

} // namespace

void LitImage::Make(QSize size, bool opaque, const PaintEnd& paint) {
    const auto format = opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    size = size.expandedTo({1, 1});
    for (int end = 0; end < LightEnds; ++end) {
        QImage image(size, format);
        image.fill(opaque ? Qt::black : Qt::transparent);
        paint(image, end);
        ends_.at(static_cast<std::size_t>(end)) = image;
    }
    now_ = QImage(size, format);
    shown_ = -1;
}

double LitImage::Outdated(double light) const {
    return std::fabs(light - shown_);
}

void LitImage::Relight(double light) {
    const double place = std::clamp(light, 0.0, 1.0) * (LightEnds - 1);
    const auto lower = static_cast<std::size_t>(std::min(place, LightEnds - 2.0));
    const auto weight = static_cast<unsigned>(std::lround((place - static_cast<double>(lower)) * 256));
    const QImage& from = ends_.at(lower);
    const QImage& to = ends_.at(lower + 1);
    for (int y = 0; y < now_.height(); ++y)
        Mix(reinterpret_cast<const std::uint32_t*>(from.constScanLine(y)),
            reinterpret_cast<const std::uint32_t*>(to.constScanLine(y)),
            reinterpret_cast<std::uint32_t*>(now_.scanLine(y)), now_.width(), weight);
    shown_ = light;
}

void LitImage::DrawScrolled(QPainter& painter, double offset, int y, int width) const {
    const double within = std::fmod(offset, Width());
    const int start = -static_cast<int>(within < 0 ? within + Width() : within);
    for (int x = start; x < width; x += Width())
        painter.drawImage(x, y, now_);
}

} // namespace pulselark
