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
        QMetaObject::invokeMethod(
            this, [deliver, scenery = std::move(scenery)] { deliver(scenery); }, Qt::QueuedConnection);
    });
}

} // namespace pulselark
