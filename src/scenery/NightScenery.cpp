#include "scenery/Brush.h"
#include "scenery/Scenery.h"
#include "scenery/Weather.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr double Round = 6.28318530718;

constexpr PerLight<std::array<ColourStop, 4>> Sky{{
    {{{0.0, {0x1B, 0x22, 0x35}},
      {0.4, {0x2A, 0x34, 0x48}},
      {0.8, {0x3D, 0x48, 0x5A}},
      {1.0, {0x46, 0x50, 0x5F}}}},
    {{{0.0, {0x0C, 0x16, 0x3A}},
      {0.4, {0x1D, 0x31, 0x66}},
      {0.8, {0x41, 0x55, 0x8E}},
      {1.0, {0x5C, 0x69, 0x9A}}}},
    {{{0.0, {0x08, 0x12, 0x3C}},
      {0.4, {0x1B, 0x30, 0x78}},
      {0.75, {0x5A, 0x4E, 0x9C}},
      {1.0, {0xC6, 0x7C, 0x92}}}},
}};
struct LandColours {
    QColor Top, Foot, Light, Shade;
};
constexpr PerLight<LandColours> Peaks{{
    {{0x2F, 0x39, 0x4B}, {0x47, 0x51, 0x60}, {0x44, 0x4F, 0x60, 150}, {0x25, 0x2D, 0x3D, 150}},
    {{0x2E, 0x3F, 0x77}, {0x53, 0x62, 0x95}, {0x5E, 0x74, 0xB4, 160}, {0x20, 0x2E, 0x60, 150}},
    {{0x3A, 0x3F, 0x88}, {0xA9, 0x70, 0x9A}, {0x8B, 0x82, 0xC8, 170}, {0x28, 0x2C, 0x6C, 150}},
}};
constexpr PerLight<LandColours> Hills{{
    {{0x24, 0x2D, 0x3B}, {0x33, 0x3D, 0x4A}, {0x33, 0x3D, 0x4B, 120}, {0x1A, 0x22, 0x2F, 130}},
    {{0x1B, 0x2A, 0x58}, {0x2F, 0x40, 0x70}, {0x36, 0x4C, 0x88, 130}, {0x13, 0x1F, 0x46, 130}},
    {{0x24, 0x2B, 0x66}, {0x5A, 0x49, 0x80}, {0x57, 0x53, 0x9C, 130}, {0x19, 0x1E, 0x50, 130}},
}};
constexpr PerLight<std::array<QColor, 2>> Firs{{{{{0x16, 0x1D, 0x28}, {0x10, 0x16, 0x20}}},
                                                {{{0x10, 0x1B, 0x3C}, {0x0A, 0x12, 0x2C}}},
                                                {{{0x16, 0x1B, 0x46}, {0x0D, 0x11, 0x30}}}}};

enum Parts : std::size_t { SkyPart, AuroraPart, MistPart, PeakPart, HillPart, VillagePart, FirPart };

class NightScenery final : public Scenery {
protected:
    void Paint() override;
    void Compose(QPainter& painter, const SceneryView& view) override;

private:
    void PaintStars(QImage& image, int end) const;
    void PaintAurora(QImage& image, int end) const;
    void PaintVillage(const Ridge& ridge);
    void PaintLand();
    void MakeBalloon();
    void DrawTwinkles(QPainter& painter, const SceneryView& view) const;
    void DrawLanterns(QPainter& painter, const SceneryView& view) const;

    SunPart moon_;
    QImage balloon_, lantern_;
};

constexpr PerLight<double> StarLight{0.12, 0.75, 1};

void NightScenery::PaintStars(QImage& image, int end) const {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    Dice dice(2);
    constexpr int Stars = 420;
    for (int i = 0; i < Stars; ++i) {
        const QPointF place(Width() * dice.Next(), image.height() * std::pow(dice.Next(), 1.3));
        const double size = std::pow(dice.Next(), 3);
        const double strength = (0.25 + 0.75 * size) * StarLight.at(static_cast<std::size_t>(end));
        painter.setBrush(WithAlpha(MixColour({0xBF, 0xD2, 0xFF}, {0xFF, 0xF0, 0xD8}, dice.Next()), strength));
        const double radius = std::max(0.6, Px(0.7 + 1.3 * size));
        painter.drawEllipse(place, radius, radius);
    }
}

// Curtains: columns of light that rise from a wandering foot and fade upwards.
void NightScenery::PaintAurora(QImage& image, int end) const {
    constexpr PerLight<double> Strength{0, 0.05, 0.42};
    const double strength = Strength.at(static_cast<std::size_t>(end));
    if (strength == 0)
        return;
    QPainter painter(&image);
    constexpr std::array<std::array<QColor, 2>, 3> Curtains{{{{{0x5D, 0xF2, 0xB6}, {0x4F, 0x8F, 0xE8}}},
                                                             {{{0x6C, 0xE8, 0xD0}, {0x9A, 0x6C, 0xE4}}},
                                                             {{{0x9C, 0xF2, 0xA4}, {0x55, 0xB4, 0xE6}}}}};
    std::uint32_t seed = 60;
    for (const auto& curtain : Curtains) {
        const int width = image.width();
        const std::vector<double> foot = RidgeLine(width, 2, 0.35, false, ++seed);
        const std::vector<double> rays = RidgeLine(width, 26, 0.55, false, ++seed + 20);
        const std::vector<double> fade = RidgeLine(width, 3, 0.3, false, ++seed + 40);
        for (std::size_t x = 0; x < foot.size(); ++x) {
            const double low = image.height() * (0.52 + 0.42 * foot[x]);
            const double high = low - image.height() * (0.30 + 0.28 * rays[x]);
            const double alpha = strength * fade[x] * (0.45 + 0.55 * rays[x]);
            QLinearGradient gradient(0, low, 0, high);
            gradient.setColorAt(0, WithAlpha(curtain[0], 0));
            gradient.setColorAt(0.12, WithAlpha(curtain[0], alpha));
            gradient.setColorAt(0.45, WithAlpha(MixColour(curtain[0], curtain[1], 0.6), alpha * 0.5));
            gradient.setColorAt(1, WithAlpha(curtain[1], 0));
            painter.fillRect(QRectF(static_cast<double>(x), high, 1, low - high), gradient);
        }
    }
}

void NightScenery::PaintVillage(const Ridge& ridge) {
    Add(0, 300, false, [&](QImage& image, int which) {
        const auto end = static_cast<std::size_t>(which);
        const LandColours& colours = Hills.at(end);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor near = MixColour(colours.Top, Firs.at(end)[0], 0.55);
        FillLand(painter, ridge, image.height(), near, MixColour(near, colours.Foot, 0.4));
        ShadeSlopes(painter, ridge, Px(90), colours.Light, colours.Shade);
        Dice dice(14);
        constexpr int Houses = 17;
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < Houses; ++i) {
            const double x = Width() * (0.42 + 0.42 * (dice.Next() + dice.Next()) / 2);
            const double size = Px(dice.Between(15, 25));
            const double foot = ridge.At(x) + Px(dice.Between(12, 74));
            const QColor window = MixColour({0xFF, 0xC8, 0x6A}, {0xFF, 0xE4, 0xA8}, dice.Next());
            PaintGlow(painter, x, foot - size * 0.4, size * 2.2, WithAlpha(window, 0.30));
            painter.setBrush(MixColour(near, Qt::black, 0.35));
            painter.drawRect(QRectF(x - size * 0.6, foot - size * 0.7, size * 1.2, size * 0.8));
            const std::array roof{QPointF(x - size * 0.75, foot - size * 0.66), QPointF(x, foot - size * 1.3),
                                  QPointF(x + size * 0.75, foot - size * 0.66)};
            painter.setBrush(MixColour(near, Qt::black, 0.55));
            painter.drawPolygon(roof.data(), static_cast<int>(roof.size()));
            painter.setBrush(window);
            painter.drawRect(QRectF(x - size * 0.38, foot - size * 0.46, size * 0.26, size * 0.3));
            painter.drawRect(QRectF(x + size * 0.12, foot - size * 0.46, size * 0.26, size * 0.3));
        }
    });
}

void NightScenery::PaintLand() {
    const auto line = [this](int cells, double roughness, bool sharp, std::uint32_t seed) {
        const double shape = Width() / Height() / 1.78;
        return RidgeLine(static_cast<int>(Width()), std::max(1, static_cast<int>(std::lround(cells * shape))),
                         roughness, sharp, seed);
    };
    const auto land = [&](const Ridge& ridge, const PerLight<LandColours>& palette, int height,
                          double depth) {
        Add(0, height, false, [&](QImage& image, int end) {
            const LandColours& colours = palette.at(static_cast<std::size_t>(end));
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            FillLand(painter, ridge, image.height(), colours.Top, colours.Foot);
            ShadeSlopes(painter, ridge, Px(depth), colours.Light, colours.Shade);
        });
    };
    land({line(4, 0.5, true, 33), Px(8), Px(210)}, Peaks, 340, 120);
    land({line(4, 0.42, false, 44), Px(8), Px(110)}, Hills, 260, 80);
    PaintVillage({line(2, 0.33, false, 58), Px(20), Px(80)});
    const Ridge ground{line(2, 0.35, false, 66), Px(150), Px(40)};
    Add(0, 270, false, [&](QImage& image, int which) {
        const auto& colours = Firs.at(static_cast<std::size_t>(which));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Dice dice(6);
        constexpr int Trees = 46;
        for (int i = 0; i < Trees; ++i) { // in groups with clearings between
            const double x = Width() * (std::floor(i / 9.0) / 5.2 + 0.13 * dice.Next());
            const double height = Px(dice.Between(70, 165)) * (0.7 + 0.3 * dice.Next());
            Around(x, Width(), [&](double at) {
                PaintFir(painter, at, ground.At(x) + Px(10), height, colours[0], colours[1]);
            });
        }
        FillLand(painter, ground, image.height(), colours[0], colours[1]);
    });
}

void NightScenery::MakeBalloon() {
    const auto side = static_cast<int>(Px(520)) | 1;
    balloon_ = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    balloon_.fill(Qt::transparent);
    QPainter painter(&balloon_);
    painter.setRenderHint(QPainter::Antialiasing);
    const double middle = side / 2.0;
    PaintGlow(painter, middle, middle, middle, QColor(0xFF, 0xB4, 0x5E, 120));
    painter.translate(middle, middle);
    painter.scale(Px(1), Px(1));
    QPainterPath envelope(QPointF(-17, 88));
    envelope.cubicTo(-34, 50, -88, 26, -88, -28);
    envelope.cubicTo(-88, -122, 88, -122, 88, -28);
    envelope.cubicTo(88, 26, 34, 50, 17, 88);
    envelope.closeSubpath();
    QRadialGradient flame(0, 46, 150);
    flame.setColorAt(0, QColor(0xFF, 0xF2, 0xC2));
    flame.setColorAt(0.35, QColor(0xFF, 0xC0, 0x63));
    flame.setColorAt(0.75, QColor(0xE8, 0x74, 0x3E));
    flame.setColorAt(1, QColor(0xA8, 0x3F, 0x48));
    painter.fillPath(envelope, flame);
    painter.setClipPath(envelope);
    constexpr std::array Gores{-62.0, -30.0, 30.0, 62.0};
    for (const double gore : Gores) { // seams, and every second panel a shade deeper
        QPainterPath seam(QPointF(gore * 0.2, 90));
        seam.cubicTo(gore * 0.5, 50, gore * 1.25, 26, gore * 1.25, -28);
        seam.cubicTo(gore * 1.25, -70, gore * 0.7, -96, 0, -100);
        painter.strokePath(seam, QPen(QColor(0x8C, 0x2F, 0x3C, 120), 2.2));
    }
    painter.fillRect(QRectF(-100, -36, 200, 13), QColor(0xFF, 0xE9, 0xBC, 120));
    painter.setClipping(false);
    painter.setPen(QPen(QColor(0x3A, 0x26, 0x2C), 1.8));
    painter.drawLine(QPointF(-15, 88), QPointF(-12, 114));
    painter.drawLine(QPointF(15, 88), QPointF(12, 114));
    PaintGlow(painter, 0, 92, 26, QColor(0xFF, 0xF0, 0xB4, 230));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x6B, 0x43, 0x2C));
    painter.drawRoundedRect(QRectF(-14, 113, 28, 19), 4, 4);
    painter.setBrush(QColor(0xA0, 0x6A, 0x3E));
    painter.drawRoundedRect(QRectF(-15, 111, 30, 5), 2, 2);
    painter.end();

    const auto small = static_cast<int>(Px(64)) | 1;
    lantern_ = QImage(small, small, QImage::Format_ARGB32_Premultiplied);
    lantern_.fill(Qt::transparent);
    QPainter light(&lantern_);
    light.setRenderHint(QPainter::Antialiasing);
    PaintGlow(light, small / 2.0, small / 2.0, small / 2.0, QColor(0xFF, 0xB8, 0x62, 170));
    light.translate(small / 2.0, small / 2.0);
    light.scale(Px(1), Px(1));
    QPainterPath paper(QPointF(-5, 8));
    paper.cubicTo(-9, -2, -7, -10, 0, -10);
    paper.cubicTo(7, -10, 9, -2, 5, 8);
    paper.closeSubpath();
    QLinearGradient inside(0, 8, 0, -10);
    inside.setColorAt(0, QColor(0xFF, 0xF0, 0xC0));
    inside.setColorAt(1, QColor(0xF0, 0x8A, 0x48));
    light.fillPath(paper, inside);
}

void NightScenery::Paint() {
    Add(0, 780, true, [this](QImage& image, int end) {
        FillVertical(image, Sky.at(static_cast<std::size_t>(end)));
        PaintStars(image, end);
    });
    Add(0, 430, false, [this](QImage& image, int end) { PaintAurora(image, end); });
    constexpr CloudColours Mist{{{{0x4B, 0x56, 0x66, 225}, {0x6B, 0x7C, 0xAE, 110}, {0x9A, 0x7C, 0xB4, 70}}},
                                {{{0x34, 0x3E, 0x4E, 225}, {0x3E, 0x50, 0x86, 90}, {0x62, 0x4E, 0x92, 60}}}};
    Add(0, 330, false, CloudPainter({{14, 5, 3}, 380, 330, 1.0}, Mist, 87));
    PaintLand();
    moon_.Make(Px(36), {{{0xB4, 0xBE, 0xCC, 90}, {0xE8, 0xEC, 0xF6, 160}, {0xFF, 0xF4, 0xDC, 210}}});
    MakeBalloon();
}

void NightScenery::DrawTwinkles(QPainter& painter, const SceneryView& view) const {
    Dice dice(31);
    constexpr int Stars = 22;
    for (int i = 0; i < Stars; ++i) {
        const double x = Width() * dice.Next();
        const double y = Px(380) * dice.Next();
        const double beat = 0.5 + 0.5 * std::sin(view.Time * dice.Between(0.5, 1.4) + dice.Next() * Round);
        const double strength = beat * std::clamp(view.Light * 1.6 - 0.1, 0.0, 1.0);
        const int side = std::max(1, static_cast<int>(Px(2.6)));
        painter.fillRect(QRect(static_cast<int>(x), static_cast<int>(y), side, side),
                         QColor(255, 250, 235, static_cast<int>(230 * strength)));
    }
}

void NightScenery::DrawLanterns(QPainter& painter, const SceneryView& view) const {
    constexpr int Most = 16;
    Dice dice(47);
    for (int i = 0; i < Most; ++i) {
        const double start = dice.Next();
        const double height = dice.Next();
        const double speed = dice.Between(5, 14);
        const double sway = std::sin(view.Time * 0.4 + i) * 6;
        const double wide = Width() + Px(80);
        const double x = start * wide - Px(speed) * view.Time;
        const double around = x - std::floor(x / wide) * wide - Px(40);
        // One after the other they rise out of the valley as the light grows.
        const double risen = std::clamp(view.Light * 1.35 - 0.045 * i, 0.0, 1.0);
        const double y = 690 - (180 + 420 * height) * risen + sway;
        if (risen > 0)
            painter.drawImage(static_cast<int>(std::lround(around)) - lantern_.width() / 2,
                              static_cast<int>(std::lround(Px(y))) - lantern_.height() / 2, lantern_);
    }
}

void NightScenery::Compose(QPainter& painter, const SceneryView& view) {
    Part(SkyPart).Draw(painter, 0, 0);
    DrawTwinkles(painter, view);
    DrawLayer(painter, view, AuroraPart, 6, 20);
    moon_.Draw(painter, Width() * 0.76, Px(430 - 260 * view.Light), view.Light);
    DrawLayer(painter, view, MistPart, 9, 90);
    DrawLayer(painter, view, PeakPart, 7, 430);
    DrawLayer(painter, view, HillPart, 16, 580);
    DrawLanterns(painter, view);
    DrawLayer(painter, view, VillagePart, 30, 660);
    const double sway = std::sin(view.Time * 0.45) * 8;
    const double rise = 560 - 350 * view.Light + std::sin(view.Time * 0.6) * 7;
    painter.drawImage(static_cast<int>(std::lround(Width() * 0.36 + Px(sway))) - balloon_.width() / 2,
                      static_cast<int>(std::lround(Px(rise))) - balloon_.height() / 2, balloon_);
    DrawLayer(painter, view, FirPart, 80, 735);
}

} // namespace

std::unique_ptr<Scenery> MakeNightScenery() {
    return std::make_unique<NightScenery>();
}

} // namespace pulselark
