#pragma once

#include "scenery/LitImage.h"

#include <QPainter>
#include <QSize>

#include <memory>
#include <span>
#include <vector>

namespace pulselark {

/// What a scenery shows.
struct SceneryView {
    double Time = 0;    ///< seconds that the scenery has scrolled
    double Light = 0.5; ///< 0 (dull, low) to 1 (radiant, high)
};

/// A picture that scrolls and whose weather, light and height follow a number. All lengths are device pixels.
class Scenery {
public:
    Scenery() = default;
    Scenery(const Scenery&) = delete;
    Scenery& operator=(const Scenery&) = delete;
    virtual ~Scenery() = default;

    /// Paints everything that can be kept, for a size of at least 1 x 1. Slow.
    void Resize(QSize size, double light);
    QSize Size() const { return size_; }
    /// Draws the picture over (0, 0) to `Size()`.
    void Draw(QPainter& painter, const SceneryView& view);
    /// Whether drawing again would bring the light closer to what it should be.
    bool Relighting(double light) const;

protected:
    virtual void Paint() = 0;
    virtual void Compose(QPainter& painter, const SceneryView& view) = 0;

    /// A part of the picture, `width` and `height` in thousandths of the picture's height; 0 is its width.
    LitImage& Add(int width, int height, bool opaque, const LitImage::PaintEnd& paint);
    const LitImage& Part(std::size_t index) const { return parts_.at(index); }
    double Width() const { return size_.width(); }
    double Height() const { return size_.height(); }
    /// Pixels of a length in thousandths of the height.
    double Px(double thousandths) const { return size_.height() * thousandths / 1000; }
    /// A layer that scrolls by `speed` thousandths of the height a second, its top at `y` thousandths.
    void DrawLayer(QPainter& painter, const SceneryView& view, std::size_t index, double speed,
                   double y) const;

private:
    QSize size_;
    std::vector<LitImage> parts_;
};

struct SceneryKind {
    const char* Name; ///< for screen readers and tool tips
    std::unique_ptr<Scenery> (*Make)();
};
std::span<const SceneryKind> SceneryKinds();

std::unique_ptr<Scenery> MakeHillsScenery();
std::unique_ptr<Scenery> MakeCoastScenery();
std::unique_ptr<Scenery> MakeNightScenery();

} // namespace pulselark
