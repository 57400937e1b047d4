#include "scenery/Weather.h"

#include "scenery/Brush.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

LitImage::PaintEnd CloudPainter(const CloudCover& cover, const CloudColours& colours, std::uint32_t seed) {
    return [cover, colours, seed](QImage& image, int which) {
        const auto end = static_cast<std::size_t>(which);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Dice dice(
            seed); // the same places and sizes in every light, so that a cloud comes and goes where it is
        const double unit = image.height() / cover.Height;
        constexpr double Usual = 1778; // width of the counts' picture
        const int count =
            std::max(1, static_cast<int>(std::lround(cover.Count.at(end) * image.width() / (unit * Usual))));
        for (int i = 0; i < count; ++i) {
            const double x = image.width() * dice.Next();
            const double rise = dice.Next();
            const double width = unit * cover.Width * dice.Between(0.55, 1);
            const double y = image.height() * (1 - cover.Spread * rise * 0.62) - unit * 6;
            const double faint = 1 - 0.3 * rise;
            const QColor top = WithAlpha(colours.Top.at(end), colours.Top.at(end).alphaF() * faint);
            const QColor foot = WithAlpha(colours.Foot.at(end), colours.Foot.at(end).alphaF() * faint);
            Around(x, image.width(), [&](double at) {
                PaintCloud(painter, at, y, width, top, foot, seed * 100 + static_cast<std::uint32_t>(i));
            });
        }
    };
}

void SunPart::Make(double radius, const PerLight<QColor>& colours) {
    radius_ = radius;
    constexpr double Reach = 7;
    const int side = static_cast<int>(std::ceil(2 * radius * Reach)) | 1;
    disc_.Make({side, side}, false, [&colours, radius](QImage& image, int end) {
        const QColor colour = colours.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const double centre = image.width() / 2.0;
        PaintGlow(painter, centre, centre, centre, WithAlpha(colour, colour.alphaF() * 0.8));
        painter.setPen(Qt::NoPen);
        painter.setBrush(WithAlpha(MixColour(WithAlpha(colour, 1), Qt::white, 0.45), colour.alphaF()));
        painter.drawEllipse(QPointF(centre, centre), radius, radius);
    });
}

void SunPart::Draw(QPainter& painter, double x, double y, double light) {
    constexpr double Step = 1.0 / 64;
    if (disc_.Outdated(light) >= Step)
        disc_.Relight(light);
    disc_.Draw(painter, static_cast<int>(std::lround(x)) - disc_.Width() / 2,
               static_cast<int>(std::lround(y)) - disc_.Height() / 2);
}

void DrawRain(QPainter& painter, QSizeF size, const SceneryView& view) {
    constexpr double Dry = 0.33;
    constexpr int Most = 150;
    const double strength = std::clamp((Dry - view.Light) / Dry, 0.0, 1.0);
    const int drops = static_cast<int>(Most * strength);
    const double length = size.height() * 0.03;
    const double fall = size.height() * 0.75; // a second
    Dice dice(77);
    QVector<QLineF> lines;
    lines.reserve(drops);
    for (int i = 0; i < drops; ++i) {
        const double near = dice.Between(0.6, 1.2);
        const double down =
            std::fmod(dice.Next() * size.height() * 1.2 + view.Time * fall * near, size.height() * 1.2);
        const double across =
            std::fmod(dice.Next() * size.width() * 1.2 - view.Time * fall * near * 0.22, size.width() * 1.2);
        const double x = across < 0 ? across + size.width() * 1.2 : across;
        lines << QLineF(x, down - length, x - length * near * 0.22, down - length * (1 - near));
    }
    painter.setPen(QPen(QColor(0xE6, 0xEE, 0xF4, 110), 1));
    painter.drawLines(lines);
}

} // namespace pulselark
