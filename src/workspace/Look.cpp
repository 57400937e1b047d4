#include "workspace/Look.h"

#include "analysis/ColourSchemes.h"
#include "platform/qt/QtFonts.h"
#include "session/Settings.h"

#include <QStringList>
#include <QTextLayout>

#include <array>

namespace pulselark {

namespace {

QColor Rgb(QRgb rrggbb) {
    return QColor::fromRgb(rrggbb);
}

const std::array<SchemeLook, ColourSchemeCount>& Looks() {
    static const std::array<SchemeLook, ColourSchemeCount> looks{{
        {Rgb(0x111A4A), Rgb(0x141D50), Rgb(0xE8ECFF), Rgb(0x272F5E), Rgb(0x303865), Rgb(0xFFFFFF),
         Rgb(0x2B3F9C), Rgb(0xE9EEFF), Rgb(0xB4BDE3), Rgb(0x5769B5), Rgb(0xA4B8F7), Rgb(0xFFFFFF)},
        {Rgb(0xB9B9AE), Rgb(0x3A3354), Rgb(0xF1EFF8), Rgb(0x4A4362), Rgb(0x524B69), Rgb(0xDC938E),
         Rgb(0xDCDCD3), Rgb(0x463C6B), Rgb(0x706988), Rgb(0xAAA6B4), Rgb(0x6F6495), Rgb(0x0A4F9E)},
        {Rgb(0x2A1838), Rgb(0x2C1B39), Rgb(0xF3EAF8), Rgb(0x3D2D49), Rgb(0x453651), Rgb(0xFFFFFF),
         Rgb(0x6D4B86), Rgb(0xF6EDFB), Rgb(0xD0C0DA), Rgb(0x896DA8), Rgb(0xC4AEED), Rgb(0xFFFFFF)},
        {Rgb(0xB4B6B2), Rgb(0x34373C), Rgb(0xF1F1EE), Rgb(0x44474C), Rgb(0x4C4F53), Rgb(0x739FD8),
         Rgb(0xDADAD3), Rgb(0x33363B), Rgb(0x626466), Rgb(0xABABA6), Rgb(0x717171), Rgb(0x0A4F9E)},
        {Rgb(0x1B1B20), Rgb(0x202025), Rgb(0xE4E4E8), Rgb(0x323236), Rgb(0x3B3B3F), Rgb(0xFFAF46),
         Rgb(0x37373F), Rgb(0xDADADF), Rgb(0xACACB2), Rgb(0x68686C), Rgb(0xBEBEBE), Rgb(0xFFAF46)},
    }};
    return looks;
}

constexpr Density Regular{48, 28, 28, 36, 13, 12};
constexpr Density Compact{32, 20, 20, 24, 12, 8};

} // namespace

const SchemeLook& CurrentLook() {
    return LookOf(ColourSchemeIndex);
}

const SchemeLook& LookOf(int scheme) {
    return Looks()[static_cast<std::size_t>(scheme)];
}

QFont TextFont(int pixels, int weight) {
    QFont font(FontFamilies());
    font.setPixelSize(pixels);
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

QString TipLines(const QString& text) {
    constexpr int Width = 360;
    QTextLayout layout(text, TextFont(12));
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(Width);
        lines.append(text.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return lines.join('\n');
}

const Density& DensityFor(int windowWidth, int windowHeight) {
    return windowWidth < 1280 || windowHeight < 800 || AutoScaleAll == Off ? Compact : Regular;
}

} // namespace pulselark
