#pragma once

#include "platform/Messages.h"

#include <QString>

class QWidget;

namespace pulselark {

/// The message window: shows `text` beside the sign of its kind, above the buttons of the mask
/// (MessageButton), and waits for one. Returns its code; closing the window or Escape is cancel if there is
/// one, else no, else OK. Enter presses the button that has the keyboard, at first the main one, or the most
/// careful one where the main one throws something away; the arrows go from button to button.
int ShowMessageWindow(QWidget* owner, const QString& text, int buttons, const MessageManner& manner);

} // namespace pulselark
