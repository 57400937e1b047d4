#include "platform/qt/QtSurface.h"

#include "platform/qt/QtColour.h"
#include "platform/qt/QtFonts.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A pen wider than one device pixel costs many times a narrow one; the same width is had from a few narrow
// lines side by side. `reach` is how far the outermost of them lie from the middle, in device pixels;
// neighbours are at most 0.8 apart, so that a line of any direction is solid.
const std::vector<QPointF>& LinesSideBySide(double reach) {
    static std::map<double, std::vector<QPointF>> known;
    std::vector<QPointF>& lines = known[reach];
    if (!lines.empty())
        return lines;
    if (reach < 0.05) {
        lines = {{0, 0}};
    } else if (reach < 0.75) {
        lines = {{0, 1.1 * reach}, {-0.95 * reach, -0.55 * reach}, {0.95 * reach, -0.55 * reach}};
    } else {
        constexpr double Apart = 0.8;
        const int steps = static_cast<int>(std::ceil(reach / Apart - 0.3));
        lines.emplace_back(0, 0);
        for (int i = 1; i <= steps; ++i) {
            const double offset = reach * i / steps;
            for (const QPointF& shift :
                 {QPointF(offset, 0), QPointF(-offset, 0), QPointF(0, offset), QPointF(0, -offset)})
                lines.push_back(shift);
        }
        const double diagonal = 0.7 * reach;
        for (const QPointF& shift : {QPointF(diagonal, diagonal), QPointF(-diagonal, diagonal),
                                     QPointF(diagonal, -diagonal), QPointF(-diagonal, -diagonal)}) {
            if (reach > 1.2)
                lines.push_back(shift);
        }
    }
    return lines;
}

constexpr std::array<QPointF, 8> Around{
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {0.7, 0.7}, {-0.7, 0.7}, {0.7, -0.7}, {-0.7, -0.7}}};

constexpr int LineSpace = 1;   // between lines of text, px
constexpr int LargeText = 19;  // px
constexpr double RimWidth = 2; // around large text, px

} // namespace

QFont PanelFont(std::string_view name, int size, bool bold) {
    QFont font(FontFamilies());
    if (size >= 14) {
        font.setPixelSize(19);
        font.setWeight(QFont::Bold);
        return font;
    }
    const bool caption = name == "Arial";
    font.setPixelSize(caption ? 12 : 11);
    font.setWeight(bold ? QFont::Bold : caption ? QFont::Medium : QFont::Normal);
    return font;
}

void QtSurface::Resize(int width, int height, double density) {
    if (width == width_ && height == height_ && density == density_)
        return;
    EndPainting();
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
    density_ = density;
    if (width_ == 0 || height_ == 0) {
        width_ = height_ = 0;
        image_ = stored_ = QImage();
        return;
    }
    image_ = QImage(static_cast<int>(std::lround(width_ * density)),
                    static_cast<int>(std::lround(height_ * density)), QImage::Format_RGB32);
    image_.setDevicePixelRatio(density);
    image_.fill(Qt::black);
    stored_ = image_;
}

const QImage& QtSurface::Picture() const {
    EndPainting();
    return image_;
}

QPainter& QtSurface::Painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        if (OnDrawn)
            OnDrawn();
    }
    return *painter_;
}

void QtSurface::EndPainting() const {
    painter_.reset();
}

void QtSurface::Clear() {
    Refresh();
}

void QtSurface::Refresh() {
    if (Empty())
        return;
    EndPainting();
    image_ = stored_;
    if (OnDrawn)
        OnDrawn();
}

void QtSurface::StorePicture(const Surface& source) {
    const auto* other = dynamic_cast<const QtSurface*>(&source);
    if (Empty() || other == nullptr || other->Empty())
        return;
    const QImage& picture = other->Picture();
    stored_ = picture.size() == image_.size()
                  ? picture
                  : picture.scaled(image_.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    stored_.setDevicePixelRatio(density_);
    if (other != this) {
        backdrop_ = other->backdrop_;
        inks_.clear();
    }
}

void QtSurface::StoreImage(const QImage& picture) {
    if (Empty())
        return;
    EndPainting();
    stored_ = picture.convertToFormat(QImage::Format_RGB32);
    stored_.setDevicePixelRatio(density_);
    image_ = stored_;
}

double QtSurface::TextWidth(std::string_view text) const {
    if (pageFont_.Height > 0)
        return pageFont_.Width(Text(text));
    return QFontMetricsF(font_).horizontalAdvance(Text(text));
}

double QtSurface::TextHeight(std::string_view /*text*/) const {
    if (pageFont_.Height > 0)
        return pageFont_.Height;
    return font_.pixelSize() + LineSpace;
}

void QtSurface::SetFont(std::string_view name, int size, bool bold) {
    font_ = PanelFont(name, size, bold);
    pageFont_ = {};
}

void QtSurface::GridLine(double x1, double y1, double x2, double y2, Colour colour) {
    // One device pixel, two from twice the plain density on; a line of width 2 takes twice that.
    const int thickness = (density_ >= 2 ? 2 : 1) * std::max(drawWidth_, 1);
    const auto device = [this](double value) { return static_cast<int>(std::floor(value * density_)); };
    const QPointF a = ToDevice(std::min(x1, x2), std::max(y1, y2));
    const QPointF b = ToDevice(std::max(x1, x2), std::min(y1, y2));
    const bool vertical = x1 == x2;
    QRect line(QPoint(device(a.x()), device(a.y())), QPoint(device(b.x()), device(b.y())));
    // A thick line lies half on either side, so that the baseline does not cut the labels below it.
    if (vertical) {
        line.moveLeft(line.left() - thickness / 2);
        line.setWidth(thickness);
    } else {
        line.moveTop(line.top() - thickness / 2);
        line.setHeight(thickness);
    }
    QPainter& painter = Painter();
    painter.fillRect(
        QRectF(line.x() / density_, line.y() / density_, line.width() / density_, line.height() / density_),
        ToQColor(colour));
}

void QtSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
    if (Empty())
        return;
    if (x1 == x2 || y1 == y2) {
        GridLine(x1, y1, x2, y2, colour);
        if (colour == outlineColour_)
            outlineBase_ = height_ - std::min(y1, y2);
        return;
    }
    const std::array<PanelPoint, 2> ends{{{x1, y1}, {x2, y2}}};
    Curve(ends, colour);
}

void QtSurface::Curve(std::span<const PanelPoint> points, Colour colour) {
    if (Empty() || points.size() < 2)
        return;
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen(ToQColor(colour), 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
    points_.resize(points.size());
    const double reach = std::max(0.0, (drawWidth_ * density_ - 1) / 2);
    for (const QPointF& line : LinesSideBySide(reach)) {
        const QPointF shift = line / density_;
        for (std::size_t i = 0; i < points.size(); ++i)
            points_[i] = QPointF(points[i].X, height_ - points[i].Y) + shift;
        painter.drawPolyline(points_.data(), static_cast<int>(points_.size()));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    outline_.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        outline_[i] = {points[i].X, height_ - points[i].Y};
    outlineColour_ = colour;
    outlineBase_ = 0;
}

void QtSurface::FilledBox(double x1, double y1, double x2, double y2) {
    if (Empty())
        return;
    const QRectF box(ToDevice(x1, y1), ToDevice(x2, y2));
    Painter().fillRect(box.normalized(), ToQColor(foreColour_));
}

Colour QtSurface::Ink(Colour colour) {
    const auto known = inks_.find(colour);
    if (known != inks_.end())
        return known->second;
    return inks_[colour] = InkOn(colour, backdrop_.data(), static_cast<int>(backdrop_.size()));
}

void QtSurface::Print(double x, double y, std::string_view text) {
    if (Empty())
        return;
    if (pageFont_.Height > 0) {
        PrintPageText(x, y, text);
        return;
    }
    QPainter& painter = Painter();
    painter.setFont(font_);
    // The figures stand in the middle of their line's height.
    const QFontMetricsF metrics(font_);
    const QPointF corner = ToDevice(x, y);
    const QPointF base(corner.x(), corner.y() + (TextHeight(text) + metrics.capHeight()) / 2);
    const QColor ink = ToQColor(Ink(foreColour_));
    if (font_.pixelSize() < LargeText) {
        painter.setPen(ink);
        painter.drawText(base, Text(text));
        return;
    }
    // Large text stands over curves: a rim in the colour of the background, the letters themselves shifted
    // all around, keeps them off.
    const Colour rim = backdrop_.empty() ? 0 : backdrop_[backdrop_.size() / 2];
    painter.setPen(ToQColor(rim));
    for (const QPointF& direction : Around)
        painter.drawText(base + direction * RimWidth, Text(text));
    painter.setPen(ink);
    painter.drawText(base, Text(text));
}

void QtSurface::FloodFill(int x, int y, Colour borderColour) {
    if (!Empty() && !FillOutline(borderColour))
        FillPixels(x, y, borderColour);
}

bool QtSurface::FillOutline(Colour borderColour) {
    if (outline_.size() < 2 || borderColour != outlineColour_ || outlineBase_ <= 0)
        return false;
    outline_.emplace_back(outline_.back().x(), outlineBase_);
    outline_.emplace_back(outline_.front().x(), outlineBase_);
    QPainter& painter = Painter();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(fillColour_));
    painter.drawPolygon(outline_.data(), static_cast<int>(outline_.size()));
    painter.setBrush(Qt::NoBrush);
    // The area itself is drawn without antialiasing, which is many times faster; a line smooths its edge.
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen edge(ToQColor(fillColour_), 1);
    edge.setCosmetic(true);
    painter.setPen(edge);
    painter.drawPolyline(outline_.data(), static_cast<int>(outline_.size()) - 2);
    painter.setRenderHint(QPainter::Antialiasing, false);
    outline_.clear();
    return true;
}

void QtSurface::FillPixels(int x, int y, Colour borderColour) {
    EndPainting();
    const int startX = static_cast<int>(x * density_);
    const int startY = static_cast<int>(y * density_);
    if (!image_.rect().contains(startX, startY))
        return;
    const QRgb border = ToQColor(borderColour).rgb();
    const QRgb fill = ToQColor(fillColour_).rgb();
    const auto open = [&](int column, int row) {
        const QRgb pixel = reinterpret_cast<const QRgb*>(image_.constScanLine(row))[column] | 0xFF000000U;
        return pixel != border && pixel != fill;
    };
    std::vector<QPoint> seeds{{startX, startY}};
    while (!seeds.empty()) {
        const QPoint seed = seeds.back();
        seeds.pop_back();
        if (!open(seed.x(), seed.y()))
            continue;
        int left = seed.x();
        int right = seed.x();
        while (left > 0 && open(left - 1, seed.y()))
            --left;
        while (right + 1 < image_.width() && open(right + 1, seed.y()))
            ++right;
        auto* row = reinterpret_cast<QRgb*>(image_.scanLine(seed.y()));
        std::fill(row + left, row + right + 1, fill);
        for (const int next : {seed.y() - 1, seed.y() + 1}) {
            if (next < 0 || next >= image_.height())
                continue;
            for (int column = left; column <= right; ++column) {
                if (open(column, next) && (column == left || !open(column - 1, next)))
                    seeds.emplace_back(column, next);
            }
        }
    }
    if (OnDrawn)
        OnDrawn();
}

void QtSurface::NoteBackdrop(const Image& image) {
    const int middle = image.Width / 2;
    backdrop_ = {image.PixelAt(middle, 0), image.PixelAt(middle, image.Height / 2),
                 image.PixelAt(middle, image.Height - 1)};
    inks_.clear();
}

void QtSurface::StretchImage(const Image& image, double x, double y, double width, double height) {
    if (Empty() || image.Pixels.empty())
        return;
    QImage picture(image.Width, image.Height, QImage::Format_RGB32);
    for (int row = 0; row < image.Height; ++row) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(row));
        for (int column = 0; column < image.Width; ++column)
            line[column] = ToQColor(image.PixelAt(column, row)).rgb();
    }
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(QRectF(x, height_ - y - height, width, height), picture);
    if (x <= 0 && y <= 0 && width >= width_ && height >= height_)
        NoteBackdrop(image);
}

} // namespace pulselark
