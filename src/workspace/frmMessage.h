#pragma once

#include <QString>

class QWidget;

namespace pulselark {

/// The message window: shows `text` above the buttons of the mask (MessageButton) and waits for one. Returns
/// its code; closing the window or Escape is cancel if there is one, else no, else OK.
int ShowMessageWindow(QWidget* owner, const QString& text, int buttons);

} // namespace pulselark
