#pragma once

#include <string>

namespace pulselark {

/// The door through which a long loop gives way to the message loop. The loop calls it at its yield points as
/// often as it likes; the door asks the clock, and only now and then, whether the progress form is drawn and
/// the message loop runs: at most 30 times a second.
class ProgressDoor {
public:
    /// Shows the progress form. The form is hidden when the door goes out of scope.
    explicit ProgressDoor(const std::string& caption);
    ProgressDoor(const ProgressDoor&) = delete;
    ProgressDoor& operator=(const ProgressDoor&) = delete;
    ~ProgressDoor();

    /// A yield point: 100 * (done / total) percent of the work is done; nothing is drawn for a total of 0.
    void Pass(double done, double total) {
        if (--passesUntilClock_ <= 0)
            AskClock(done, total);
    }

private:
    void AskClock(double done, double total);

    int passesUntilClock_ = 0;
    long long nextDrawing_ = 0; // clock, ms
};

} // namespace pulselark
