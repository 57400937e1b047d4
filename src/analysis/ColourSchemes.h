#pragma once

#include "base/Colour.h"
#include "base/Numbers.h"

#include <array>

/// The five colour schemes, with the two pictures that belong to each.
namespace pulselark {

struct ColourScheme {
    Colour Button;
    Colour ButtonFace;
    Colour Frame;
    Colour Grid; ///< all grid lines
    Colour Accent;
    Colour Fill; ///< filled curves
    Colour ModuleBack;
    Colour Caption; ///< labels beside a panel
    Colour Text;    ///< foreground of a panel
};

inline constexpr int ColourSchemeCount = 5;

extern const std::array<ColourScheme, ColourSchemeCount> ColourSchemes;
extern Integer ColourSchemeIndex; ///< scheme in use, 0 to 4: Midnight, Linen, Plum, Mist, Ember; start 0
extern Boolean SolidGraphs;       ///< curves are drawn as filled areas; start 0

/// The scheme in use.
const ColourScheme& CurrentScheme();

/// Colour ramp of a scheme, 512 x 8: a waterfall's oldest layer takes its left end, the newest its right end.
const Image& picWGradient(int scheme);
/// Background picture of a scheme's panels, 64 x 256.
const Image& picModBGSrc(int scheme);

} // namespace pulselark
