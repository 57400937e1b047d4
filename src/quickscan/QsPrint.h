#pragma once

#include "base/Numbers.h"
#include "platform/Surface.h"

/// The quick scan's page on paper.
namespace pulselark {

/// Whoever has a printer puts its routine here: it lets the user choose a printer and draws one page with
/// `draw`. Returns 0, 32755 if the user thought better of it, or the failure's number.
using PagePrinting = Integer (*)(void (*draw)(Surface& paper));
extern PagePrinting PrintOnePage;

/// Prints the page that is on show. Without a scan the user is told that there is nothing to print; a failure
/// is told, too, and the page on the screen is drawn anew on every way out.
void QsPrint();

} // namespace pulselark
