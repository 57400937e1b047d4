#include "platform/ProgressDoor.h"

#include "platform/Platform.h"

namespace pulselark {

namespace {

constexpr int PassesBetweenClockReadings = 16;
constexpr int MillisecondsBetweenDrawings = 34; // 30 a second at most

} // namespace

ProgressDoor::ProgressDoor(const std::string& caption) {
    ThePlatform().Progress.Show(caption);
    nextDrawing_ = ThePlatform().Clock.Milliseconds() + MillisecondsBetweenDrawings;
}

ProgressDoor::~ProgressDoor() {
    ThePlatform().Progress.Hide();
}

void ProgressDoor::AskClock(double done, double total) {
    passesUntilClock_ = PassesBetweenClockReadings;
    const auto now = ThePlatform().Clock.Milliseconds();
    if (now < nextDrawing_)
        return;
    if (total > 0)
        ThePlatform().Progress.Draw(100.0 * done / total);
    ThePlatform().MessageLoop.Yield();
    nextDrawing_ = ThePlatform().Clock.Milliseconds() + MillisecondsBetweenDrawings;
}

} // namespace pulselark
