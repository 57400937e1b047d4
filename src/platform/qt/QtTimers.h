#pragma once

#include "base/Controls.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace pulselark {

/// Runs the session's timers on the user-interface thread. The timers are values; `Sync` takes over what has
/// been set in them.
class QtTimers {
public:
    /// The timers to run, which must outlive this; `afterTick` is called after each handler.
    QtTimers(std::span<Timer* const> timers, std::function<void()> afterTick);

    /// Starts and stops what has changed since the last call.
    void Sync();

private:
    struct Running {
        Timer* Value;
        std::unique_ptr<QTimer> Clockwork;
    };
    std::function<void()> afterTick_;
    std::vector<Running> timers_;
};

} // namespace pulselark
