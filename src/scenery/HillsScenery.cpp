#include "scenery/Birds.h"
#include "scenery/Brush.h"
#include "scenery/Scenery.h"
#include "scenery/Weather.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr PerLight<std::array<ColourStop, 4>> Sky{{
    {{{0.0, {0x53, 0x62, 0x72}},
      {0.35, {0x7C, 0x8B, 0x96}},
      {0.7, {0xA8, 0xB2, 0xB4}},
      {1.0, {0xA8, 0xB2, 0xB4}}}},
    {{{0.0, {0x4B, 0x92, 0xC9}},
      {0.35, {0x8B, 0xC2, 0xE2}},
      {0.7, {0xDD, 0xEE, 0xEE}},
      {1.0, {0xDD, 0xEE, 0xEE}}}},
    {{{0.0, {0x2E, 0x7F, 0xC6}},
      {0.32, {0x86, 0xC2, 0xE8}},
      {0.6, {0xFB, 0xE9, 0xC4}},
      {1.0, {0xFF, 0xD6, 0x92}}}},
}};

struct LandColours {
    QColor Top, Foot, Light, Shade;
};
constexpr PerLight<LandColours> Peaks{{
    {{0x77, 0x86, 0x92}, {0x9E, 0xA9, 0xAC}, {0x94, 0xA1, 0xAA, 150}, {0x5C, 0x6C, 0x79, 150}},
    {{0x79, 0xA0, 0xC4}, {0xC6, 0xDD, 0xE4}, {0xC9, 0xE1, 0xF0, 150}, {0x55, 0x80, 0xAC, 150}},
    {{0x6E, 0x95, 0xC6}, {0xF6, 0xDF, 0xC0}, {0xFF, 0xE6, 0xC2, 190}, {0x4E, 0x78, 0xB2, 150}},
}};
constexpr PerLight<LandColours> Woods{{
    {{0x5B, 0x70, 0x74}, {0x8A, 0x99, 0x95}, {0x72, 0x85, 0x86, 110}, {0x48, 0x5C, 0x62, 120}},
    {{0x55, 0x93, 0x93}, {0xAF, 0xD4, 0xBC}, {0x93, 0xC7, 0xAE, 130}, {0x3D, 0x7A, 0x80, 120}},
    {{0x4A, 0x90, 0x8C}, {0xEA, 0xDD, 0xA6}, {0xF2, 0xDF, 0x98, 130}, {0x34, 0x75, 0x7E, 120}},
}};
constexpr PerLight<LandColours> Fields{{
    {{0x55, 0x6B, 0x5C}, {0x70, 0x80, 0x6C}, {0x6E, 0x84, 0x6C, 110}, {0x44, 0x58, 0x4D, 110}},
    {{0x5A, 0xA0, 0x61}, {0xA3, 0xC9, 0x7C}, {0xA8, 0xD2, 0x80, 120}, {0x3F, 0x83, 0x55, 110}},
    {{0x53, 0xA1, 0x53}, {0xDA, 0xD2, 0x70}, {0xEE, 0xDD, 0x74, 140}, {0x38, 0x82, 0x4B, 110}},
}};
constexpr PerLight<LandColours> Meadow{{
    {{0x48, 0x60, 0x48}, {0x2E, 0x42, 0x34}, {0x5F, 0x78, 0x57, 110}, {0x37, 0x4C, 0x3C, 110}},
    {{0x55, 0x9A, 0x48}, {0x28, 0x66, 0x38}, {0x86, 0xC0, 0x5C, 120}, {0x3A, 0x7C, 0x3D, 110}},
    {{0x6C, 0xAE, 0x3F}, {0x24, 0x6E, 0x36}, {0xC9, 0xD9, 0x58, 140}, {0x3F, 0x8A, 0x3A, 110}},
}};

enum Parts : std::size_t { SkyPart, HighClouds, LowClouds, PeakPart, WoodPart, FieldPart, MeadowPart };

class HillsScenery final : public Scenery {
protected:
    void Paint() override;
    void Compose(QPainter& painter, const SceneryView& view) override;

private:
    Ridge Line(int cells, double roughness, bool sharp, double top, double drop, std::uint32_t seed) const;
    void PaintPeaks();
    void PaintWoods();
    void PaintFields();
    void PaintMeadow();
    void PaintGrass(QPainter& painter, const Ridge& ridge, std::size_t end) const;

    SunPart sun_;
};

// How many rises of a usual size fit into the picture's width.
Ridge HillsScenery::Line(int cells, double roughness, bool sharp, double top, double drop,
                         std::uint32_t seed) const {
    const double shape = Width() / Height() / 1.78;
    const int fitting = std::max(1, static_cast<int>(std::lround(cells * shape)));
    return {RidgeLine(static_cast<int>(Width()), fitting, roughness, sharp, seed), Px(top), Px(drop)};
}

void HillsScenery::PaintPeaks() {
    const Ridge ridge = Line(5, 0.52, true, 8, 190, 11);
    Add(0, 330, false, [&](QImage& image, int end) {
        const LandColours& colours = Peaks.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        FillLand(painter, ridge, image.height(), colours.Top, colours.Foot);
        ShadeSlopes(painter, ridge, Px(110), colours.Light, colours.Shade);
    });
}

void HillsScenery::PaintWoods() {
    const Ridge ridge = Line(4, 0.40, false, 22, 100, 23);
    Add(0, 260, false, [&](QImage& image, int end) {
        const LandColours& colours = Woods.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Dice dice(5);
        const int firs = static_cast<int>(Width() / Px(5));
        for (int i = 0; i < firs; ++i) { // a wood along the line
            const double x = Width() * i / firs;
            const double height = Px(dice.Between(12, 24)) * (0.5 + dice.Next());
            const double foot = ridge.At(x) + Px(3);
            Around(x, Width(),
                   [&](double at) { PaintFir(painter, at, foot, height, colours.Top, colours.Top); });
        }
        FillLand(painter, ridge, image.height(), colours.Top, colours.Foot);
        ShadeSlopes(painter, ridge, Px(80), colours.Light, colours.Shade);
    });
}

void HillsScenery::PaintFields() {
    const Ridge ridge = Line(3, 0.30, false, 50, 110, 37);
    Add(0, 330, false, [&](QImage& image, int end) {
        const LandColours& colours = Fields.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        FillLand(painter, ridge, image.height(), colours.Top, colours.Foot);
        ShadeSlopes(painter, ridge, Px(120), colours.Light, colours.Shade);
        constexpr int Furrows = 9;
        for (int i = 1; i < Furrows; ++i) { // lines of fields, wider apart towards the eye
            Ridge furrow = ridge;
            furrow.Top += Px(9.0 * i + 2.2 * i * i);
            furrow.Drop *= 1 - 0.07 * i;
            QPainterPath line(QPointF(-2, furrow.At(-2)));
            for (int x = 0; x <= image.width() + 2; x += 2)
                line.lineTo(x, furrow.At(x));
            painter.strokePath(line,
                               QPen(WithAlpha(i % 2 == 0 ? colours.Light : colours.Shade, 0.4), Px(1.6)));
        }
        Dice dice(91);
        const QColor lit = MixColour(colours.Top, colours.Light, 0.35);
        const QColor dark = MixColour(colours.Shade, QColor(0x18, 0x38, 0x30), 0.35);
        constexpr int Trees = 26;
        for (std::uint32_t i = 0; i < Trees; ++i) {
            const double x = Width() * dice.Next();
            const double down = dice.Next() * dice.Next();
            const double height = Px(34 + 40 * down) * dice.Between(0.7, 1.2);
            const double foot = ridge.At(x) + Px(4 + 90 * down);
            Around(x, Width(), [&](double at) {
                PaintRoundTree(painter, at, foot, height, WithAlpha(lit, 1), WithAlpha(dark, 1), i + 1);
            });
        }
    });
}

void HillsScenery::PaintGrass(QPainter& painter, const Ridge& ridge, std::size_t end) const {
    const LandColours& colours = Meadow.at(end);
    Dice dice(3);
    const int blades = static_cast<int>(650 * Width() / Height());
    for (int i = 0; i < blades; ++i) {
        const double part = static_cast<double>(i) / blades;
        const double x = Width() * dice.Next();
        const double depth = part * part; // later blades stand nearer
        const double foot = ridge.At(x) + Px(8 + 190 * depth);
        const double length = Px(14 + 34 * depth) * dice.Between(0.6, 1.3);
        const double lean = length * dice.Between(-0.35, 0.45);
        const QColor blade = WithAlpha(MixColour(colours.Light, colours.Foot, dice.Between(0.1, 0.9)), 0.85);
        QPainterPath path(QPointF(x - Px(1.2), foot));
        path.quadTo(x, foot - length * 0.6, x + lean, foot - length);
        path.quadTo(x + Px(1.4), foot - length * 0.5, x + Px(1.6), foot);
        painter.fillPath(path, blade);
    }
    constexpr PerLight<double> Open{0.25, 0.8, 1};
    constexpr std::array Petals{QColor(0xFF, 0xFF, 0xFA), QColor(0xF6, 0xC9, 0x45), QColor(0xE8, 0x6A, 0x5E),
                                QColor(0x9C, 0x86, 0xE2)};
    constexpr int Flowers = 110;
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < Flowers; ++i) {
        const double x = Width() * dice.Next();
        const double depth = dice.Next();
        const double y = ridge.At(x) + Px(2 + 150 * depth * depth);
        const double radius = Px(2.2 + 4.2 * depth) * (0.55 + 0.45 * Open.at(end));
        const QColor petal = Petals.at(static_cast<std::size_t>(dice.Next() * 3.99));
        painter.setBrush(MixColour(colours.Foot, petal, 0.35 + 0.65 * Open.at(end)));
        for (int leaf = 0; leaf < 5; ++leaf) {
            const double angle = leaf * 1.2566 + x;
            painter.drawEllipse(
                QPointF(x + std::cos(angle) * radius * 0.7, y + std::sin(angle) * radius * 0.5),
                radius * 0.55, radius * 0.42);
        }
        painter.setBrush(MixColour(petal, QColor(0xC7, 0x84, 0x1E), 0.7));
        painter.drawEllipse(QPointF(x, y), radius * 0.3, radius * 0.25);
    }
}

void HillsScenery::PaintMeadow() {
    const Ridge ridge = Line(2, 0.35, false, 60, 70, 53);
    Add(0, 260, false, [&](QImage& image, int end) {
        const LandColours& colours = Meadow.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        FillLand(painter, ridge, image.height(), colours.Top, colours.Foot);
        ShadeSlopes(painter, ridge, Px(90), colours.Light, colours.Shade);
        PaintGrass(painter, ridge, static_cast<std::size_t>(end));
    });
}

void HillsScenery::Paint() {
    Add(0, 760, true,
        [](QImage& image, int end) { FillVertical(image, Sky.at(static_cast<std::size_t>(end))); });
    constexpr CloudColours Colours{
        {{{0x8F, 0x9B, 0xA6, 240}, {0xF6, 0xFA, 0xFD, 235}, {0xFF, 0xFB, 0xF2, 225}}},
        {{{0x5E, 0x6C, 0x7A, 240}, {0xB9, 0xD2, 0xE4, 220}, {0xFB, 0xD3, 0xA0, 200}}}};
    Add(0, 260, false, CloudPainter({{15, 7, 4}, 230, 260, 0.55}, Colours, 5));
    Add(0, 330, false, CloudPainter({{13, 5, 3}, 390, 330, 0.9}, Colours, 17));
    PaintPeaks();
    PaintWoods();
    PaintFields();
    PaintMeadow();
    sun_.Make(Px(34), {{{0xE8, 0xEA, 0xE6, 120}, {0xFF, 0xF6, 0xDC, 190}, {0xFF, 0xE9, 0xA8, 235}}});
}

void HillsScenery::Compose(QPainter& painter, const SceneryView& view) {
    Part(SkyPart).Draw(painter, 0, 0);
    sun_.Draw(painter, Width() * 0.72, Px(500 - 330 * view.Light), view.Light);
    DrawLayer(painter, view, HighClouds, 5, 30);
    DrawLayer(painter, view, LowClouds, 11, 60);
    DrawLayer(painter, view, PeakPart, 8, 410);
    DrawLayer(painter, view, WoodPart, 18, 545);
    DrawLayer(painter, view, FieldPart, 36, 590);
    DrawLayer(painter, view, MeadowPart, 90, 740);
    DrawRain(painter, QSizeF(Width(), Height()), view);
    const double climb = std::sin(view.Time * 0.5) * 12;
    constexpr QColor Plumage(0x5A, 0x43, 0x30);
    DrawLark(painter, QPointF(Width() * 0.34, Px(560 - 400 * view.Light + climb)), Px(74), view.Time,
             Plumage);
}

} // namespace

std::unique_ptr<Scenery> MakeHillsScenery() {
    return std::make_unique<HillsScenery>();
}

} // namespace pulselark
