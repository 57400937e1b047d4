#include "platform/qt/CurvePen.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace pulselark {

namespace {

constexpr int Batch = 8;         // pixels looked at together
constexpr double Farthest = 1e9; // a line that ends beyond is left out

// Positions are counted in 1/65536 of a pixel.
using Fixed = std::int64_t;
constexpr unsigned FixedBits = 16;
constexpr Fixed One = Fixed{1} << FixedBits;

Fixed ToFixed(double value) {
    return static_cast<Fixed>(value * static_cast<double>(One));
}

// Covers the pixels of one line from low to high, both within it, to the `strength` of at most One.
void CoverAcross(std::uint8_t* line, std::ptrdiff_t step, Fixed low, Fixed high, Fixed strength) {
    const auto cover = [strength](std::uint8_t& pixel, Fixed share) {
        constexpr Fixed Whole = 255;
        const auto covered = static_cast<std::uint8_t>((share * strength >> FixedBits) * Whole >> FixedBits);
        pixel = std::max(pixel, covered);
    };
    const Fixed lowest = low >> FixedBits;
    const Fixed highest = (high - 1) >> FixedBits;
    std::uint8_t* pixel = line + lowest * step;
    if (lowest == highest) {
        cover(*pixel, high - low);
        return;
    }
    cover(*pixel, ((lowest + 1) << FixedBits) - low);
    for (Fixed i = lowest + 1; i < highest; ++i)
        cover(*(pixel += step), One);
    cover(*(pixel + step), high - (highest << FixedBits));
}

// `over` laid on `under` with a coverage of 1 to 255.
QRgb Mixed(QRgb under, QRgb over, unsigned coverage) {
    constexpr QRgb RedAndBlue = 0x00FF00FF;
    constexpr QRgb Green = 0x0000FF00;
    constexpr QRgb Opaque = 0xFF000000;
    const unsigned share = coverage + (coverage >> 7U); // of 256
    const unsigned rest = 256 - share;
    const QRgb redAndBlue =
        (((over & RedAndBlue) * share + (under & RedAndBlue) * rest + 0x00800080) >> 8U) & RedAndBlue;
    const QRgb green = (((over & Green) * share + (under & Green) * rest + 0x00008000) >> 8U) & Green;
    return Opaque | redAndBlue | green;
}

} // namespace

// The pixels of a picture, and those of them that a curve can reach.
struct CurvePen::Area {
    int Columns, Rows;
    int Left, Right, Top, Bottom; // Right and Bottom are the first beyond
};

// A straight piece, seen along the axis that it follows more closely, with round ends.
struct CurvePen::Piece {
    double Start, End; // along that axis, Start <= End
    double Across;     // at Start
    double Slope;      // across per along, -1 to 1
    double Radius;     // of the pen
    double Half;       // of the piece's thickness, across
    double CutReach;   // how far from its ends, along, the cuts square to its direction reach

    struct Extent {
        double Low, High; // across, from the piece's middle line
    };
    // At an end: the piece itself, cut off, with the round ends around it. `fromStart` and `toEnd` are
    // distances along the axis.
    Extent AtEnds(double fromStart, double toEnd) const {
        Extent extent{-Half, Half};
        if (Slope == 0) {
            if (std::min(fromStart, toEnd) < 0)
                extent = {Half, -Half};
        } else {
            const double perDistance = (1 + Slope * Slope) / Slope;
            const double cutAtStart = -fromStart * perDistance;
            const double cutAtEnd = toEnd * perDistance;
            extent.Low = std::max(extent.Low, Slope > 0 ? cutAtStart : cutAtEnd);
            extent.High = std::min(extent.High, Slope > 0 ? cutAtEnd : cutAtStart);
        }
        if (extent.Low >= extent.High)
            extent = {Half, -Half};
        const auto addRound = [&](double distance, double middle) {
            if (std::abs(distance) >= Radius)
                return;
            const double half = std::sqrt(Radius * Radius - distance * distance);
            extent = {std::min(extent.Low, middle - half), std::max(extent.High, middle + half)};
        };
        addRound(fromStart, -Slope * fromStart);
        addRound(toEnd, Slope * toEnd);
        return extent;
    }
};

template <bool Upright>
void CurvePen::Cover(const Piece& piece, const Area& area) {
    const int lengths = Upright ? area.Rows : area.Columns;
    const Fixed widths = ToFixed(Upright ? area.Columns : area.Rows);
    const std::ptrdiff_t step = Upright ? 1 : stride_;
    const std::ptrdiff_t next = Upright ? stride_ : 1;
    const double start = piece.Start - piece.Radius;
    const double end = piece.End + piece.Radius;
    // Clipped as real numbers: a curve may run far out of the picture.
    const int first = static_cast<int>(std::clamp(std::floor(start), 0.0, lengths + 0.0));
    const int last = static_cast<int>(std::clamp(std::ceil(end), 0.0, lengths + 0.0)) - 1;
    const Fixed slope = ToFixed(piece.Slope);
    const Fixed wholeHalf = ToFixed(piece.Half);
    Fixed centre = ToFixed(piece.Across + piece.Slope * (first + 0.5 - piece.Start));
    std::uint8_t* line = coverage_.data() + first * next;
    for (int along = first; along <= last; ++along, line += next, centre += slope) {
        // The first and the last pixel are covered in part.
        const double from = std::max<double>(start, along);
        const double to = std::min<double>(end, along + 1);
        const double middle = (from + to) / 2;
        const double fromStart = middle - piece.Start;
        const double toEnd = piece.End - middle;
        Fixed low = centre - wholeHalf;
        Fixed high = centre + wholeHalf;
        if (std::min(fromStart, toEnd) < piece.CutReach) {
            const Piece::Extent extent = piece.AtEnds(fromStart, toEnd);
            low = centre + ToFixed(extent.Low);
            high = centre + ToFixed(extent.High);
        }
        low = std::max(low, Fixed{0});
        high = std::min(high, widths);
        if (low < high)
            CoverAcross(line, step, low, high, ToFixed(to - from));
    }
}

void CurvePen::CoverLine(const QPointF& from, const QPointF& to, double radius, Area& area) {
    const double dx = to.x() - from.x();
    const double dy = to.y() - from.y();
    for (const double place : {from.x(), from.y(), to.x(), to.y()}) {
        if (!(std::abs(place) < Farthest))
            return;
    }
    const auto held = [](double value, int most) {
        return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(most)));
    };
    area.Left = std::min(area.Left, held(std::min(from.x(), to.x()) - 2 * radius, area.Columns));
    area.Right = std::max(area.Right, held(std::max(from.x(), to.x()) + 2 * radius + 1, area.Columns));
    area.Top = std::min(area.Top, held(std::min(from.y(), to.y()) - 2 * radius, area.Rows));
    area.Bottom = std::max(area.Bottom, held(std::max(from.y(), to.y()) + 2 * radius + 1, area.Rows));

    const bool upright = std::abs(dy) > std::abs(dx);
    const double along = upright ? dy : dx;
    const double slope = along != 0 ? (upright ? dx : dy) / along : 0;
    const double slant = std::sqrt(1 + slope * slope);
    const QPointF& low = along < 0 ? to : from;
    const double start = upright ? low.y() : low.x();
    const double across = upright ? low.x() : low.y();
    const Piece piece{start,          start + std::abs(along),         across, slope, radius,
                      radius * slant, radius * std::abs(slope) / slant};
    if (upright)
        Cover<true>(piece, area);
    else
        Cover<false>(piece, area);
}

void CurvePen::LayOn(QImage& picture, const Area& area, QRgb colour) {
    static_assert(Batch == sizeof(std::uint64_t));
    uchar* const bits = picture.bits();
    for (int row = area.Top; row < area.Bottom; ++row) {
        auto* pixels = reinterpret_cast<QRgb*>(bits + row * picture.bytesPerLine());
        std::uint8_t* covered = coverage_.data() + std::ptrdiff_t{row} * stride_;
        for (int first = area.Left / Batch * Batch; first < area.Right; first += Batch) {
            std::uint64_t batch = 0;
            std::memcpy(&batch, covered + first, sizeof batch);
            if (batch == 0)
                continue;
            for (int column = first; column < std::min(first + Batch, area.Columns); ++column) {
                if (covered[column] != 0)
                    pixels[column] = Mixed(pixels[column], colour, covered[column]);
            }
            std::memset(covered + first, 0, sizeof batch);
        }
    }
}

void CurvePen::Stroke(QImage& picture, std::span<const QPointF> points, double width, QRgb colour) {
    if (picture.isNull() || points.size() < 2)
        return;
    const int columns = picture.width();
    const int rows = picture.height();
    stride_ = (columns + Batch - 1) / Batch * Batch;
    const std::size_t pixels = static_cast<std::size_t>(stride_) * static_cast<std::size_t>(rows);
    if (coverage_.size() != pixels)
        coverage_.assign(pixels, 0);
    Area area{columns, rows, columns, 0, rows, 0};
    for (std::size_t i = 1; i < points.size(); ++i)
        CoverLine(points[i - 1], points[i], width / 2, area);
    LayOn(picture, area, colour);
}

void FillRectangle(QImage& picture, const QRect& area, QRgb colour) {
    const QRect inside = area & picture.rect();
    uchar* const bits = picture.bits();
    for (int row = inside.top(); row <= inside.bottom(); ++row) {
        auto* pixels = reinterpret_cast<QRgb*>(bits + row * picture.bytesPerLine());
        std::fill_n(pixels + inside.left(), inside.width(), colour);
    }
}

} // namespace pulselark
