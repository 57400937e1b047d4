#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace pulselark {

/// Hears the signals that end a program from outside (SIGTERM, SIGINT, SIGHUP) and passes them on in the
/// event loop, where the routine that is called may do whatever it likes. The same signal a second time ends
/// the program at once, as if nobody heard it. A signal that the program was started to ignore stays ignored.
/// One object at a time.
class EndSignals final : public QObject {
public:
    /// `ended` takes the number of the signal.
    explicit EndSignals(std::function<void(int)> ended);
    ~EndSignals() override;
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    void Take();

    std::function<void(int)> ended_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace pulselark
