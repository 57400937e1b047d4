#pragma once

#include <string>

namespace pulselark {

/// Buttons of a message, added up; the answer is one of them.
enum MessageButton : int { ButtonYes = 1, ButtonNo = 2, ButtonOK = 4, ButtonCancel = 8 };

/// The answer of a message that nobody reads: cancel if there is one, else no, else OK.
inline int MostCarefulButton(int buttons) {
    for (const int code : {ButtonCancel, ButtonNo, ButtonOK}) {
        if ((buttons & code) != 0)
            return code;
    }
    return buttons;
}

/// Shows a text to the user and waits for a button.
class Messages {
public:
    virtual ~Messages() = default;
    /// Returns the code of the pressed button; closing the message is cancel if there is one, else no, else
    /// OK.
    virtual int Show(const std::string& text, int buttons) = 0;
};

} // namespace pulselark
