#pragma once

#include "base/Colour.h"

#include <QColor>
#include <QImage>

namespace pulselark {

inline QColor ToQColor(Colour colour) {
    return {RedOf(colour), GreenOf(colour), BlueOf(colour)};
}

inline Colour FromQColor(const QColor& colour) {
    return MakeColour(colour.red(), colour.green(), colour.blue());
}

/// A picture of the core for the toolkit.
QImage ToQImage(const Image& image);

/// Contrast of two colours, 1 to 21: (lighter + 0.05) / (darker + 0.05) of their relative luminances
/// (WCAG 2.1).
double ContrastRatio(Colour a, Colour b);

/// The colour moved towards white on a dark backdrop, or towards black on a light one, in steps of 1/256
/// until its worst contrast with the backdrop's colours is 4.5. For text on the screen only.
Colour InkOn(Colour colour, const Colour* backdrop, int backdropColours);

} // namespace pulselark
