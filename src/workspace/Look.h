#pragma once

#include "base/Numbers.h"

#include <QColor>
#include <QFont>
#include <QString>

namespace pulselark {

/// The colours of a scheme around the panels, chosen to go with the table of ColourSchemes.h. Contrast
/// figures of the texts are at least 6 (WCAG 2.1).
struct SchemeLook {
    QColor Desk; ///< behind the modules
    QColor Bar;  ///< top bar, status line, menus
    QColor BarText;
    QColor RaisedHover; ///< plate on a bar under the pointer
    QColor RaisedPressed;
    QColor Running;  ///< running button, progress
    QColor TitleBar; ///< of a module
    QColor TitleText;
    QColor TitleGlyph;
    QColor Border; ///< module at rest
    QColor BorderActive;
    QColor Focus; ///< focus ring
};

/// Look of the scheme in use, or of scheme 0 to 4.
const SchemeLook& CurrentLook();
const SchemeLook& LookOf(int scheme);

/// Colours of forms and dialogs, the same in all schemes.
namespace FormColour {
inline constexpr QColor Paper(0xF5, 0xF8, 0xF6);
inline constexpr QColor Card(0xFF, 0xFF, 0xFF);
inline constexpr QColor Rule(0xD5, 0xE0, 0xDB);
inline constexpr QColor Ink(0x1F, 0x3A, 0x3A);
inline constexpr QColor Hint(0x5A, 0x73, 0x73);
inline constexpr QColor Edge(0x73, 0x8F, 0x8B);
inline constexpr QColor Teal(0x1F, 0x6F, 0x6A);
inline constexpr QColor Focus(0x0A, 0x4F, 0x9E);
inline constexpr QColor Danger(0xB3, 0x26, 0x1E);
} // namespace FormColour

/// The program's font in a pixel size and a weight of 400, 500 or 700.
QFont TextFont(int pixels, int weight = 400);

/// The words of a tool tip in lines of a width that is read with ease.
QString TipLines(const QString& text);

/// Sizes of the window's parts in pixels; compact on small windows.
struct Density {
    int TopBar;
    int StatusLine;
    int TitleBar;
    int Transport; ///< diameter of the record, replay and stop buttons
    int Body;      ///< text of the window
    int Gap;       ///< between modules, and around them
};
/// Compact below 1280 x 800, and at any size while the layout is not scaled, since the built-in one puts its
/// first panels right below the narrow bar; regular otherwise.
const Density& DensityFor(int windowWidth, int windowHeight);

} // namespace pulselark
