#include "scenery/Scenery.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr double LightStep = 1.0 / 256; // smaller ones cannot be seen
constexpr std::size_t RelitAtOnce = 2;

} // namespace

std::span<const SceneryKind> SceneryKinds() {
    static constexpr std::array Kinds{
        SceneryKind{"Lark over the hills", &MakeHillsScenery},
        SceneryKind{"Boat and tide", &MakeCoastScenery},
        SceneryKind{"Lantern balloon at night", &MakeNightScenery},
    };
    return Kinds;
}

void Scenery::Resize(QSize size, double light) {
    size_ = size.expandedTo({1, 1});
    parts_.clear();
    Paint();
    for (LitImage& part : parts_)
        part.Relight(light);
}

LitImage& Scenery::Add(int width, int height, bool opaque, const LitImage::PaintEnd& paint) {
    const auto pixels = [this](int thousandths) { return static_cast<int>(std::ceil(Px(thousandths))); };
    parts_.emplace_back().Make({width == 0 ? size_.width() : pixels(width), pixels(height)}, opaque, paint);
    return parts_.back();
}

bool Scenery::Relighting(double light) const {
    return std::any_of(parts_.begin(), parts_.end(),
                       [light](const LitImage& part) { return part.Outdated(light) >= LightStep; });
}

// The few parts that are farthest behind are relit with each picture, which spreads the work evenly.
void Scenery::Draw(QPainter& painter, const SceneryView& view) {
    for (std::size_t i = 0; i < RelitAtOnce && !parts_.empty(); ++i) {
        const auto behind =
            std::max_element(parts_.begin(), parts_.end(), [&view](const auto& a, const auto& b) {
                return a.Outdated(view.Light) < b.Outdated(view.Light);
            });
        if (behind->Outdated(view.Light) >= LightStep)
            behind->Relight(view.Light);
    }
    Compose(painter, view);
}

void Scenery::DrawLayer(QPainter& painter, const SceneryView& view, std::size_t index, double speed,
                        double y) const {
    Part(index).DrawScrolled(painter, Px(speed) * view.Time, static_cast<int>(std::lround(Px(y))),
                             size_.width());
}

} // namespace pulselark
