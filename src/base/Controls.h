#pragma once

#include "base/Colour.h"
#include "base/Numbers.h"

#include <string>

/// Controls of the windows as plain values. The routines of the system set them, the windows mirror them; so
/// everything that a control shows can be tested without a window.
namespace pulselark {

struct Label {
    std::string Caption;
    bool Visible = false;
    Colour ForeColour = 0;
};

/// A caption that lies over the top of a panel. Grid lines keep clear of it: they start right of it, or end
/// left of it. Place and size in panel units, from the panel's left edge.
struct CaptionLabel : Label {
    double Left = 0;
    double Width = 0;
    double Height = 16;
};

/// A picture box that shows one frame of a strip of button pictures.
struct PictureButton {
    Integer Frame = 0;
};

/// A control that lies on the quick scan's page. Place and size in the page's units, y upwards, `Bottom` its
/// lower edge.
struct PageControl {
    bool Visible = false;
    double Left = 0;
    double Bottom = 0;
    double Width = 0;
    double Height = 0;
};

/// A picture that is shown or not.
struct Picture {
    bool Visible = false;
};

/// A timer of the user-interface thread. Whoever runs the timers calls `Handler` each time `Interval`
/// milliseconds have passed while `Enabled` is set; a one-shot timer disables itself in its handler.
struct Timer {
    const char* Name;
    Long Interval; ///< milliseconds
    bool Enabled = false;
    void (*Handler)() = nullptr;
};

} // namespace pulselark
