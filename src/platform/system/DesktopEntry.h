#pragma once

#include "base/Numbers.h"

namespace pulselark {

/// Makes the desktop entry that starts this program, with its icon, in the user's folders of applications and
/// icons
/// (`$XDG_DATA_HOME/applications` and `icons/hicolor/scalable/apps`). Returns 0 or the failure's number.
Integer CreateDesktopShortcut();

} // namespace pulselark
