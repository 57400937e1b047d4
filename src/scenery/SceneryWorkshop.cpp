#include "scenery/SceneryWorkshop.h"

#include <utility>

namespace pulselark {

SceneryWorkshop::SceneryWorkshop() {
    painter_.setMaxThreadCount(1);
}

SceneryWorkshop::~SceneryWorkshop() {
    painter_.clear();
    painter_.waitForDone();
}

void SceneryWorkshop::Order(int kind, QSize size, double light, Deliver deliver) {
    painter_.start([this, kind, size, light, deliver = std::move(deliver)] {
        std::shared_ptr<Scenery> scenery = SceneryKinds()[static_cast<std::size_t>(kind)].Make();
        scenery->Resize(size, light);
        const std::lock_guard guard(lock_);
        painted_.push_back({std::move(scenery), deliver});
        QMetaObject::invokeMethod(this, "HandOver", Qt::QueuedConnection);
    });
}

void SceneryWorkshop::HandOver() {
    std::vector<Painted> painted;
    {
        const std::lock_guard guard(lock_);
        painted.swap(painted_);
    }
    for (const Painted& one : painted)
        one.To(one.Picture);
}

} // namespace pulselark
