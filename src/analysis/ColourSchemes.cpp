#include "analysis/ColourSchemes.h"

namespace pulselark {

Integer ColourSchemeIndex = 0;
Boolean SolidGraphs = Off;

const std::array<ColourScheme, ColourSchemeCount> ColourSchemes{{
    {0xA46756, 0xF7B6A4, 0xF7B8A4, 0x893523, 0xFFFFFF, 0xFA7AB3, 0x893523, 0xB5EB81, 0xB5EB81},
    {0x95646F, 0x95646F, 0xE0E0E0, 0xE9EEEE, 0x323ABF, 0x4149CE, 0xC8D2D2, 0xA46B79, 0xA46B79},
    {0x95646F, 0xEDAEC4, 0xEDAEC4, 0x7A4162, 0xFFFFFF, 0xE197E6, 0x7A4162, 0xDAD391, 0xDAD391},
    {0x717171, 0x717171, 0xC9D1D1, 0xB1B5B5, 0xB95000, 0xC7771C, 0xC9D1D1, 0x505050, 0x505050},
    {0x8E8E8E, 0x8E8E8E, 0xBEBEBE, 0x424242, 0x46AFFF, 0x3888E3, 0x362E2E, 0xAFAFAF, 0xAFAFAF},
}};

namespace {

// The pictures' own colours, written red first as a designer would.
constexpr Colour Rgb(std::uint32_t rrggbb) {
    return MakeColour(static_cast<int>(rrggbb >> 16U), static_cast<int>((rrggbb >> 8U) & 0xFFU),
                      static_cast<int>(rrggbb & 0xFFU));
}

constexpr std::array<std::array<std::uint32_t, 4>, ColourSchemeCount> RampColours{{
    {0x34408C, 0x8A68E0, 0xCDB4FF, 0xFFFFFF},
    {0xD9CBD6, 0xDE9A93, 0xCE4941, 0xBF3A32},
    {0x553A70, 0xA86BB8, 0xE697E1, 0xFFFFFF},
    {0xC3CEDA, 0x7FB0DF, 0x1C77C7, 0x0050B9},
    {0x4A3B2C, 0x9A6430, 0xE38838, 0xFFAF46},
}};

// Top, centre, bottom. Each stays far from the lightness of the scheme's grid, or lines would vanish in a
// band.
constexpr std::array<std::array<std::uint32_t, 3>, ColourSchemeCount> BackgroundColours{{
    {0x080C24, 0x0A0F2B, 0x0C1232},
    {0xFFFFFF, 0xFFFFFF, 0xFFFFFF},
    {0x140A1B, 0x180D20, 0x1D1027},
    {0xFCFCFA, 0xFAFAF7, 0xF7F7F4},
    {0x0F0F12, 0x121215, 0x161619},
}};

using SchemePictures = std::array<Image, ColourSchemeCount>;

SchemePictures MakeRamps() {
    SchemePictures pictures;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto& c = RampColours[i];
        pictures[i] =
            MakeRamp(512, 8, true, {{0, Rgb(c[0])}, {0.5, Rgb(c[1])}, {0.8, Rgb(c[2])}, {1, Rgb(c[3])}});
    }
    return pictures;
}

SchemePictures MakeBackgrounds() {
    SchemePictures pictures;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto& c = BackgroundColours[i];
        pictures[i] = MakeRamp(64, 256, false, {{0, Rgb(c[0])}, {0.5, Rgb(c[1])}, {1, Rgb(c[2])}});
    }
    return pictures;
}

} // namespace

const ColourScheme& CurrentScheme() {
    return ColourSchemes[static_cast<std::size_t>(ColourSchemeIndex)];
}

const Image& picWGradient(int scheme) {
    static const SchemePictures ramps = MakeRamps();
    return ramps[static_cast<std::size_t>(scheme)];
}

const Image& picModBGSrc(int scheme) {
    static const SchemePictures backgrounds = MakeBackgrounds();
    return backgrounds[static_cast<std::size_t>(scheme)];
}

} // namespace pulselark
