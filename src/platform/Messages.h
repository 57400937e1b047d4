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

/// What a message is about; it decides the message's sign.
enum class MessageKind { Information, Question, Warning };

/// How a message is shown.
struct MessageManner {
    MessageKind Kind = MessageKind::Information;
    int Destructive = 0; ///< the button that throws something away; 0 for none
};

/// A message with a yes is a question, any other an information.
inline MessageManner UsualManner(int buttons) {
    return {(buttons & ButtonYes) != 0 ? MessageKind::Question : MessageKind::Information};
}

/// The manner of a failure that the user is told of.
inline constexpr MessageManner WarningManner{MessageKind::Warning};

/// Shows a text to the user and waits for a button.
class Messages {
public:
    virtual ~Messages() = default;
    /// Returns the code of the pressed button; closing the message is cancel if there is one, else no, else
    /// OK.
    virtual int Show(const std::string& text, int buttons, const MessageManner& manner) = 0;
    int Show(const std::string& text, int buttons) { return Show(text, buttons, UsualManner(buttons)); }
};

} // namespace pulselark
