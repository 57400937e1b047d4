#pragma once

#include "platform/link/LinkFormat.h"

namespace pulselark {

/// Place of the window on the screen, in pixels as the toolkit counts them.
struct ScenePlace {
    int Left = 0, Top = 0, Width = 0, Height = 0;
};

/// What the window has to do after a message.
enum class WindowAction { Nothing, Close, ShowMenu, StepBehind, ComeForward, TakePlace };

/// The messages that are about the window and not about what it shows.
class WindowOrders {
public:
    /// Nothing for every message that is about something else, and for places that make no sense.
    WindowAction Take(const LinkMessage& message);
    const ScenePlace& Place() const { return place_; }

private:
    WindowAction TakePlace(const LinkMessage& message);

    ScenePlace place_;
    bool settingsOpen_ = false;
};

} // namespace pulselark
