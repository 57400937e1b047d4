#include "platform/qt/QtSurface.h"

#include "platform/qt/QtColour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace pulselark {

namespace {

constexpr std::array<QPointF, 8> Around{
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {0.7, 0.7}, {-0.7, 0.7}, {0.7, -0.7}, {-0.7, -0.7}}};

constexpr int LineSpace = 1;   // between lines of text, px
constexpr int LargeText = 19;  // px
constexpr double RimWidth = 2; // around large text, px

} // namespace

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
    // Copied over what is there: sharing the picture would cost a new one at the next stroke.
    std::memcpy(image_.bits(), stored_.constBits(), static_cast<std::size_t>(image_.sizeInBytes()));
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
        return pageFont_.Width(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    return font_->Width(text);
}

double QtSurface::TextHeight(std::string_view /*text*/) const {
    if (pageFont_.Height > 0)
        return pageFont_.Height;
    return font_->PixelSize() + LineSpace;
}

void QtSurface::SetFont(std::string_view name, int size, bool bold) {
    pageFont_ = {};
    for (const std::unique_ptr<PanelText>& known : fonts_) {
        if (known->Is(name, size, bold)) {
            font_ = known.get();
            return;
        }
    }
    font_ = fonts_.emplace_back(std::make_unique<PanelText>(name, size, bold)).get();
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
    Painter();
    FillRectangle(image_, line, ToQColor(colour).rgb());
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
    points_.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        points_[i] = QPointF(points[i].X, height_ - points[i].Y) * density_;
    Painter();
    pen_.Stroke(image_, points_, drawWidth_ * density_, ToQColor(colour).rgb());
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
    // The figures stand in the middle of their line's height.
    const QPointF corner = ToDevice(x, y);
    const QPointF base(corner.x(), corner.y() + (TextHeight(text) + font_->CapHeight()) / 2);
    const QColor ink = ToQColor(Ink(foreColour_));
    if (font_->PixelSize() < LargeText) {
        painter.setPen(ink);
        font_->Draw(painter, base, text);
        return;
    }
    // Large text stands over curves: a rim in the colour of the background, the letters themselves shifted
    // all around, keeps them off.
    const Colour rim = backdrop_.empty() ? 0 : backdrop_[backdrop_.size() / 2];
    painter.setPen(ToQColor(rim));
    for (const QPointF& direction : Around)
        font_->Draw(painter, base + direction * RimWidth, text);
    painter.setPen(ink);
    font_->Draw(painter, base, text);
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
    for (QPointF& point : outline_)
        point *= density_;
    pen_.Stroke(image_, std::span(outline_).first(outline_.size() - 2), 1, ToQColor(fillColour_).rgb());
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
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(QRectF(x, height_ - y - height, width, height), ToQImage(image));
    if (x <= 0 && y <= 0 && width >= width_ && height >= height_)
        NoteBackdrop(image);
}

} // namespace pulselark
