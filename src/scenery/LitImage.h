#pragma once

#include <QImage>
#include <QPainter>

#include <array>
#include <functional>

namespace pulselark {

/// The lights in which every part of a scenery is painted: dull, mild, radiant. What lies between is mixed.
inline constexpr int LightEnds = 3;
template <class T>
using PerLight = std::array<T, LightEnds>;

/// A picture that was painted once for each light and is mixed anew when the light has changed enough.
/// Drawing it is a bare copy, however much is painted on it.
class LitImage {
public:
    /// Paints one of the lights; the picture is empty or, without transparency, undefined.
    using PaintEnd = std::function<void(QImage& image, int end)>;

    void Make(QSize size, bool opaque, const PaintEnd& paint);
    /// How far the shown light is from the wanted one.
    double Outdated(double light) const;
    void Relight(double light);

    int Width() const { return now_.width(); }
    int Height() const { return now_.height(); }

    void Draw(QPainter& painter, int x, int y) const { painter.drawImage(x, y, now_); }
    /// Repeats the picture to both sides of a window of `width` pixels, moved to the left by `offset`.
    void DrawScrolled(QPainter& painter, double offset, int y, int width) const;

private:
    PerLight<QImage> ends_;
    QImage now_;
    double shown_ = -1;
};

} // namespace pulselark
