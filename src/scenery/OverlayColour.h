#pragma once

#include <QColor>

#include <array>
#include <cstddef>

namespace pulselark {

/// Ground of what lies over a scenery, the pacer's plate and the menu's card: the main program's bars in each
/// of its five schemes. White has at least 10 on all of them (WCAG 2).
inline QColor OverlayColour(int scheme) {
    constexpr std::array Bars{QColor(0x14, 0x1D, 0x50), QColor(0x3A, 0x33, 0x54), QColor(0x2C, 0x1B, 0x39),
                              QColor(0x34, 0x37, 0x3C), QColor(0x20, 0x20, 0x25)};
    return Bars.at(static_cast<std::size_t>(scheme));
}

} // namespace pulselark
