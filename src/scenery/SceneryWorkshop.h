#pragma once

#include "scenery/Scenery.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace pulselark {

/// Paints sceneries aside, since a large one takes half a second and the sender of a message waits for its
/// answer. A scenery shares nothing with anybody until it is delivered.
class SceneryWorkshop final : public QObject {
    Q_OBJECT

public:
    using Deliver = std::function<void(std::shared_ptr<Scenery>)>;

    SceneryWorkshop();
    /// What was not begun is left, what was is waited for.
    ~SceneryWorkshop() override;

    /// Delivers the scenery of this number from the event loop, in the order in which they were asked for.
    void Order(int kind, QSize size, double light, Deliver deliver);

private:
    struct Painted {
        std::shared_ptr<Scenery> Picture;
        Deliver To;
    };
    Q_INVOKABLE void HandOver();

    std::mutex lock_; ///< of `painted_`
    std::vector<Painted> painted_;
    QThreadPool painter_;
};

} // namespace pulselark
