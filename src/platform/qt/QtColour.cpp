#include "platform/qt/QtColour.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr double LeastTextContrast = 4.5;

double Linear(int channel) {
    const double c = channel / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double Luminance(Colour c) {
    return 0.2126 * Linear(RedOf(c)) + 0.7152 * Linear(GreenOf(c)) + 0.0722 * Linear(BlueOf(c));
}

} // namespace

double ContrastRatio(Colour a, Colour b) {
    const double la = Luminance(a);
    const double lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Colour InkOn(Colour colour, const Colour* backdrop, int backdropColours) {
    if (backdropColours < 1)
        return colour;
    const auto worst = [&](Colour ink) {
        double least = 21;
        for (int i = 0; i < backdropColours; ++i)
            least = std::min(least, ContrastRatio(ink, backdrop[i]));
        return least;
    };
    const int goal = Luminance(backdrop[backdropColours / 2]) < 0.18 ? 255 : 0;
    for (int step = 0; step <= 256; ++step) {
        const auto moved = [&](int from) {
            return static_cast<int>(Round(from + (goal - from) * step / 256.0));
        };
        const Colour ink = MakeColour(moved(RedOf(colour)), moved(GreenOf(colour)), moved(BlueOf(colour)));
        if (worst(ink) >= LeastTextContrast)
            return ink;
    }
    return colour;
}

QImage ToQImage(const Image& image) {
    QImage picture(image.Width, image.Height, QImage::Format_RGB32);
    for (int row = 0; row < image.Height; ++row) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(row));
        for (int column = 0; column < image.Width; ++column)
            line[column] = ToQColor(image.PixelAt(column, row)).rgb();
    }
    return picture;
}

} // namespace pulselark
