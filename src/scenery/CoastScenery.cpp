#include "scenery/Birds.h"
#include "scenery/Brush.h"
#include "scenery/Scenery.h"
#include "scenery/Weather.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr double Horizon = 540; // thousandths of the height
constexpr double Round = 6.28318530718;

constexpr PerLight<std::array<ColourStop, 4>> Sky{{
    {{{0.0, {0x4A, 0x58, 0x67}},
      {0.4, {0x74, 0x83, 0x8E}},
      {0.8, {0xA6, 0xB0, 0xB2}},
      {1.0, {0xB0, 0xB8, 0xB7}}}},
    {{{0.0, {0x3F, 0x94, 0xCF}},
      {0.4, {0x85, 0xC5, 0xE6}},
      {0.8, {0xD5, 0xEC, 0xEF}},
      {1.0, {0xEA, 0xF3, 0xEC}}}},
    {{{0.0, {0x3B, 0x83, 0xC2}},
      {0.4, {0x9D, 0xC3, 0xDA}},
      {0.75, {0xFA, 0xD9, 0xA8}},
      {1.0, {0xFF, 0xC6, 0x83}}}},
}};
constexpr PerLight<std::array<ColourStop, 3>> Sea{{
    {{{0.0, {0x7B, 0x8C, 0x93}}, {0.25, {0x57, 0x6C, 0x76}}, {1.0, {0x2F, 0x44, 0x50}}}},
    {{{0.0, {0xA6, 0xD8, 0xDE}}, {0.25, {0x49, 0xA5, 0xBB}}, {1.0, {0x17, 0x65, 0x86}}}},
    {{{0.0, {0xFB, 0xD0, 0x92}}, {0.25, {0x8C, 0xB1, 0xA8}}, {1.0, {0x14, 0x6B, 0x83}}}},
}};
constexpr PerLight<std::array<QColor, 2>> Cliff{{{{{0x70, 0x7D, 0x86}, {0x8E, 0x99, 0x9B}}},
                                                 {{{0x5F, 0x95, 0xA4}, {0xB9, 0xD6, 0xD2}}},
                                                 {{{0x5B, 0x86, 0x9C}, {0xF0, 0xCB, 0xA0}}}}};
constexpr PerLight<QColor> Foam{{{0xC9, 0xD3, 0xD6}, {0xF2, 0xFC, 0xFB}, {0xFF, 0xF3, 0xD8}}};
constexpr PerLight<std::array<QColor, 2>> Sand{{{{{0x8B, 0x85, 0x7B}, {0x6C, 0x67, 0x60}}},
                                                {{{0xE9, 0xD8, 0xB0}, {0xC9, 0xAE, 0x7E}}},
                                                {{{0xF8, 0xDC, 0xA4}, {0xD9, 0xA6, 0x66}}}}};
constexpr PerLight<std::array<QColor, 2>> Reed{{{{{0x5B, 0x68, 0x58}, {0x3F, 0x4C, 0x44}}},
                                                {{{0x7F, 0xA8, 0x5A}, {0x48, 0x7C, 0x4A}}},
                                                {{{0xB4, 0xB2, 0x54}, {0x5A, 0x82, 0x46}}}}};

// A row of waves: its place, how high its crests are, how long, how fast it runs and how it swings.
struct WaveRow {
    int Y, Crest, Waves;
    double Speed, Swing, Phase;
};
constexpr std::array<WaveRow, 6> Rows{{
    {556, 3, 34, 9, 1, 0.0},
    {580, 5, 24, 15, 2, 1.7},
    {616, 8, 16, 24, 4, 3.9},
    {664, 12, 11, 38, 6, 0.8},
    {722, 17, 8, 56, 9, 2.6},
    {790, 22, 6, 80, 12, 5.2},
}};
constexpr int RowHeight = 130;
constexpr int CliffHeight = 240;
constexpr std::size_t BoatBefore = 4; // the boat stands behind this row

enum Parts : std::size_t {
    SkyPart,
    HighClouds,
    LowClouds,
    CliffPart,
    SeaPart,
    FirstRow,
    BeachPart = FirstRow + Rows.size()
};

class CoastScenery final : public Scenery {
protected:
    void Paint() override;
    void Compose(QPainter& painter, const SceneryView& view) override;

private:
    void PaintCliff();
    void PaintRow(const WaveRow& row, std::uint32_t seed);
    void PaintBeach();
    void DrawGlitter(QPainter& painter, const SceneryView& view, double sunX) const;
    void DrawBoat(QPainter& painter, const SceneryView& view) const;

    SunPart sun_;
};

void CoastScenery::PaintCliff() {
    std::vector<double> line = RidgeLine(static_cast<int>(Width()), 3, 0.5, true, 12);
    for (double& item : line) // islands: only what is high stands out of the sea
        item = std::max(0.0, item * 1.5 - 0.55) / 0.95;
    const Ridge ridge{std::move(line), Px(120), Px(122)};
    Add(0, CliffHeight, false, [&](QImage& image, int end) {
        const auto& colours = Cliff.at(static_cast<std::size_t>(end));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath sea;
        sea.addRect(QRectF(0, 0, Width(), Px(CliffHeight)));
        painter.setClipPath(sea);
        const double highest =
            static_cast<double>(std::max_element(ridge.Line.begin(), ridge.Line.end()) - ridge.Line.begin());
        const double foot = ridge.At(highest) + Px(4);
        Around(highest, Width(), [&](double x) { // a lighthouse on the highest point
            const std::array tower{QPointF(x - Px(7), foot), QPointF(x - Px(4.5), foot - Px(46)),
                                   QPointF(x + Px(4.5), foot - Px(46)), QPointF(x + Px(7), foot)};
            painter.setPen(Qt::NoPen);
            painter.setBrush(MixColour(colours[1], Qt::white, 0.6));
            painter.drawPolygon(tower.data(), static_cast<int>(tower.size()));
            painter.setBrush(MixColour(colours[0], QColor(0xB0, 0x40, 0x38), 0.65));
            painter.drawRect(QRectF(x - Px(5.6), foot - Px(33), Px(11.2), Px(10)));
            painter.drawRect(QRectF(x - Px(6.4), foot - Px(49), Px(12.8), Px(3)));
            painter.drawPie(QRectF(x - Px(5), foot - Px(66), Px(10), Px(12)), 0, 180 * 16);
            painter.setBrush(end == 0 ? QColor(0xFF, 0xE2, 0x90) : MixColour(colours[1], Qt::white, 0.8));
            painter.drawRect(QRectF(x - Px(4), foot - Px(60), Px(8), Px(11)));
            if (end == 0)
                PaintGlow(painter, x, foot - Px(55), Px(60), QColor(0xFF, 0xE7, 0xA6, 170));
        });
        FillLand(painter, ridge, Px(CliffHeight), colours[0], colours[1]);
        ShadeSlopes(painter, ridge, Px(60), WithAlpha(MixColour(colours[1], Qt::white, 0.4), 0.6),
                    WithAlpha(MixColour(colours[0], Qt::black, 0.3), 0.5));
    });
}

// Crests steeper than a sine, clear water below them that fades into the row's sea.
void CoastScenery::PaintRow(const WaveRow& row, std::uint32_t seed) {
    const int waves = std::max(2, static_cast<int>(std::lround(row.Waves * Width() / Height() / 1.78)));
    std::vector<double> line(static_cast<std::size_t>(Width()));
    const std::vector<double> swell = RidgeLine(static_cast<int>(Width()), waves, 0.4, false, seed);
    for (std::size_t x = 0; x < line.size(); ++x) {
        const double angle = Round * waves * static_cast<double>(x) / Width();
        line[x] = (0.45 + 0.55 * swell[x]) * std::pow(0.5 + 0.5 * std::sin(angle + 2 * swell[x]), 1.5);
    }
    const Ridge ridge{std::move(line), Px(3), Px(row.Crest)};
    const double near = (row.Y - Horizon) / (1000 - Horizon);
    Add(0, RowHeight, false, [&](QImage& image, int which) {
        const auto end = static_cast<std::size_t>(which);
        const auto& sea = Sea.at(end);
        const QColor water = near < 0.25 ? MixColour(sea[0].Colour, sea[1].Colour, near * 4)
                                         : MixColour(sea[1].Colour, sea[2].Colour, (near - 0.25) / 0.75);
        const QColor crest = MixColour(water, Foam.at(end), 0.26);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient gradient(0, ridge.Top, 0, Px(RowHeight) - 2);
        gradient.setColorAt(0, WithAlpha(crest, 0.95));
        gradient.setColorAt(0.3, WithAlpha(water, 0.9));
        gradient.setColorAt(1, WithAlpha(water, 0));
        painter.fillPath(ridge.Land(Px(RowHeight)), gradient);
        for (int x = 0; x < image.width(); x += 2) { // foam where the crest is high
            const double height = 1 - (ridge.At(x) - ridge.Top) / ridge.Drop;
            const double strength = std::clamp((height - 0.35) / 0.5, 0.0, 1.0);
            const double thick = std::max(1.0, Px(row.Crest * 0.16) * strength);
            painter.fillRect(QRectF(x, ridge.At(x), 2, thick), WithAlpha(Foam.at(end), 0.85 * strength));
        }
    });
}

void CoastScenery::PaintBeach() {
    const Ridge ridge{RidgeLine(static_cast<int>(Width()), 3, 0.3, false, 71), Px(60), Px(34)};
    Add(0, 250, false, [&](QImage& image, int which) {
        const auto end = static_cast<std::size_t>(which);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto band = [&](double up, const QColor& colour) {
            Ridge edge = ridge;
            edge.Top -= Px(up);
            painter.fillPath(edge.Land(image.height()), colour);
        };
        band(20, WithAlpha(Foam.at(end), 0.55)); // the last of a wave, and the sand that it has wetted
        band(15, WithAlpha(MixColour(Sand.at(end)[1], Sea.at(end)[1].Colour, 0.45), 0.9));
        FillLand(painter, ridge, image.height(), Sand.at(end)[0], Sand.at(end)[1]);
        Dice dice(8);
        constexpr int Pebbles = 160;
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < Pebbles; ++i) {
            const double x = Width() * dice.Next();
            const double size = Px(dice.Between(0.8, 3.2));
            painter.setBrush(WithAlpha(
                dice.Next() < 0.5 ? MixColour(Sand.at(end)[1], Qt::black, 0.3) : Foam.at(end), 0.6));
            painter.drawEllipse(QPointF(x, ridge.At(x) + Px(dice.Between(8, 130))), size * 1.4, size);
        }
        constexpr int Tufts = 9, Blades = 26;
        for (int tuft = 0; tuft < Tufts; ++tuft) {
            const double middle = Width() * (tuft + dice.Between(0.1, 0.9)) / Tufts;
            const double ground = ridge.At(middle) + Px(dice.Between(60, 130));
            const double size = dice.Between(0.6, 1.25);
            for (int i = 0; i < Blades; ++i) {
                const double x = middle + Px(dice.Between(-26, 26)) * size;
                const double foot = ground + Px(dice.Between(-5, 5)) * size;
                const double length = Px(dice.Between(40, 105)) * size;
                const double lean = length * (dice.Between(-0.25, 0.6));
                const QColor colour = MixColour(Reed.at(end)[0], Reed.at(end)[1], dice.Next());
                Around(x, Width(), [&](double at) {
                    QPainterPath blade(QPointF(at - Px(1.6), foot));
                    blade.quadTo(at, foot - length * 0.7, at + lean, foot - length);
                    blade.quadTo(at + Px(1.6), foot - length * 0.6, at + Px(2), foot);
                    painter.fillPath(blade, colour);
                });
            }
        }
    });
}

void CoastScenery::Paint() {
    Add(0, 560, true,
        [](QImage& image, int end) { FillVertical(image, Sky.at(static_cast<std::size_t>(end))); });
    constexpr CloudColours Colours{
        {{{0x8A, 0x97, 0xA2, 240}, {0xF6, 0xFA, 0xFC, 235}, {0xFF, 0xF3, 0xE0, 215}}},
        {{{0x55, 0x63, 0x71, 240}, {0xB4, 0xD3, 0xE3, 220}, {0xF2, 0xB0, 0x84, 190}}}};
    Add(0, 250, false, CloudPainter({{15, 6, 4}, 220, 250, 0.6}, Colours, 41));
    Add(0, 330, false, CloudPainter({{13, 4, 3}, 380, 330, 0.9}, Colours, 29));
    PaintCliff();
    Add(0, 470, true,
        [](QImage& image, int end) { FillVertical(image, Sea.at(static_cast<std::size_t>(end))); });
    std::uint32_t seed = 100;
    for (const WaveRow& row : Rows)
        PaintRow(row, ++seed);
    PaintBeach();
    sun_.Make(Px(38), {{{0xE4, 0xE8, 0xE6, 110}, {0xFF, 0xF5, 0xD8, 190}, {0xFF, 0xDD, 0x94, 240}}});
}

void CoastScenery::DrawGlitter(QPainter& painter, const SceneryView& view, double sunX) const {
    constexpr int Sparks = 110;
    Dice dice(19);
    for (int i = 0; i < Sparks; ++i) {
        const double part = dice.Next();
        const double down = part * part;
        const double spread = Px(22 + 170 * down);
        const double x = sunX + spread * (dice.Next() + dice.Next() - 1) * 1.6;
        const double length = Px(6 + 30 * down) * dice.Between(0.5, 1.3);
        const double beat = std::sin(view.Time * dice.Between(0.8, 2.0) + dice.Next() * Round);
        const double strength = std::clamp(0.15 + 0.75 * beat, 0.0, 1.0) * (0.1 + 0.75 * view.Light);
        const double y = Px(Horizon + 4 + 260 * down);
        painter.fillRect(QRect(static_cast<int>(x - length / 2), static_cast<int>(y),
                               static_cast<int>(length), std::max(1, static_cast<int>(Px(1.2 + 1.6 * down)))),
                         QColor(255, 243, 212, static_cast<int>(215 * strength)));
    }
}

void CoastScenery::DrawBoat(QPainter& painter, const SceneryView& view) const {
    const double calm = 0.35 + 0.65 * (1 - view.Light); // waves sink as the light grows
    const double roll = std::sin(view.Time * 0.9) * 3.2 * calm;
    const double heave = std::sin(view.Time * 0.9 + 1.1) * 7 * calm;
    const double shade = 0.42 * (1 - view.Light);
    const auto lit = [shade](QColor colour) { return MixColour(colour, QColor(0x45, 0x54, 0x62), shade); };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(Width() * 0.40, Px(725 - 11 * view.Light + heave));
    painter.rotate(roll);
    painter.scale(Px(1.15), Px(1.15));
    QPainterPath main(QPointF(4, -176));
    main.cubicTo(46, -120, 62, -70, 66, -30);
    main.quadTo(34, -24, 4, -28);
    main.closeSubpath();
    painter.fillPath(main, lit({0xFF, 0xF8, 0xEA}));
    QPainterPath shadow(QPointF(4, -176));
    shadow.cubicTo(22, -120, 30, -70, 32, -27);
    shadow.quadTo(18, -26, 4, -28);
    shadow.closeSubpath();
    painter.fillPath(shadow, lit({0xF3, 0xDF, 0xC2}));
    QPainterPath jib(QPointF(-3, -158));
    jib.cubicTo(-22, -104, -42, -64, -62, -30);
    jib.quadTo(-30, -36, -3, -30);
    jib.closeSubpath();
    painter.fillPath(jib, lit({0xE0, 0x6B, 0x4C}));
    painter.fillRect(QRectF(-1.5, -184, 4, 164), lit({0x6A, 0x47, 0x30}));
    QPainterPath pennant(QPointF(2, -184));
    pennant.quadTo(14, -190 + std::sin(view.Time * 3) * 2, 28, -182);
    pennant.quadTo(14, -180, 2, -176);
    painter.fillPath(pennant, lit({0xE0, 0x6B, 0x4C}));
    QPainterPath hull(QPointF(-78, -24));
    hull.quadTo(0, -12, 76, -26);
    hull.cubicTo(70, 2, 54, 16, 36, 18);
    hull.lineTo(-46, 18);
    hull.cubicTo(-62, 12, -72, -4, -78, -24);
    painter.fillPath(hull, lit({0x1F, 0x5C, 0x7A}));
    QPainterPath rail(QPointF(-78, -24));
    rail.quadTo(0, -12, 76, -26);
    rail.lineTo(75, -19);
    rail.quadTo(0, -5, -76, -17);
    painter.fillPath(rail, lit({0xFB, 0xEF, 0xD8}));
    painter.restore();
}

void CoastScenery::Compose(QPainter& painter, const SceneryView& view) {
    Part(SkyPart).Draw(painter, 0, 0);
    const double sunX = Width() * 0.70;
    sun_.Draw(painter, sunX, Px(Horizon - 10 - 330 * view.Light), view.Light);
    DrawLayer(painter, view, HighClouds, 4, 20);
    DrawLayer(painter, view, LowClouds, 9, 50);
    DrawLayer(painter, view, CliffPart, 7, Horizon - CliffHeight + 2);
    Part(SeaPart).Draw(painter, 0, static_cast<int>(Px(Horizon)));
    const double rough = 0.25 + 0.75 * (1 - view.Light);
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const WaveRow& row = Rows[i];
        if (i == BoatBefore)
            DrawBoat(painter, view);
        const double swing = std::sin(view.Time * 0.9 + row.Phase) * row.Swing * rough;
        const double tide = 26 * view.Light * (row.Y - Horizon) / (1000 - Horizon);
        DrawLayer(painter, view, FirstRow + i, row.Speed, row.Y - tide + swing);
    }
    DrawGlitter(painter, view, sunX);
    const double wash = std::sin(view.Time * 0.55) * 6;
    DrawLayer(painter, view, BeachPart, 105, 775 + 70 * view.Light + wash);
    DrawRain(painter, QSizeF(Width(), Height()), view);
    const QColor gull = MixColour(QColor(0x50, 0x5C, 0x66), QColor(0xFF, 0xFF, 0xFF), view.Light);
    constexpr std::array<QPointF, 3> Flock{{{0.20, 60}, {0.25, 95}, {0.155, 104}}};
    for (const QPointF& gullPlace : Flock)
        DrawGull(painter, {Width() * gullPlace.x(), Px(gullPlace.y() + 240 - 190 * view.Light)}, Px(42),
                 view.Time + gullPlace.x() * 40, gull);
}

} // namespace

std::unique_ptr<Scenery> MakeCoastScenery() {
    return std::make_unique<CoastScenery>();
}

} // namespace pulselark
