#include "platform/qt/QtTimers.h"

#include <utility>

namespace pulselark {

QtTimers::QtTimers(std::span<Timer* const> timers, std::function<void()> afterTick)
    : afterTick_(std::move(afterTick)) {
    for (Timer* timer : timers) {
        auto clockwork = std::make_unique<QTimer>();
        clockwork->setTimerType(Qt::PreciseTimer);
        QObject::connect(clockwork.get(), &QTimer::timeout, clockwork.get(), [this, timer] {
            // A change of this very event may have stopped the timer already.
            if (timer->Enabled && timer->Handler != nullptr)
                timer->Handler();
            afterTick_();
        });
        timers_.push_back({timer, std::move(clockwork)});
    }
}

void QtTimers::Sync() {
    for (const Running& running : timers_) {
        const bool wanted = running.Value->Enabled && running.Value->Handler != nullptr;
        if (!wanted)
            running.Clockwork->stop();
        else if (!running.Clockwork->isActive() || running.Clockwork->interval() != running.Value->Interval)
            running.Clockwork->start(running.Value->Interval);
    }
}

} // namespace pulselark
