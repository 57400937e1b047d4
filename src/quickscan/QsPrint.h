#pragma once

#include "platform/PagePrinter.h"

/// The quick scan's page on paper.
namespace pulselark {

/// The page on show, for a sheet: 1 / 1.1 of its width and of its height, which leaves the margin at the
/// right and below. On a sheet of the proportion 1 to the square root of 2 its square parts are square.
PaperPage QsPaperPage(PaperSize paper);

/// What the page is called in the printer's queue, and as a document.
std::string QsPageTitle();

/// Prints the page that is on show: the user chooses the printer, which gets one page. Without a scan the
/// user is told that there is nothing to print. A failure is told, but for 32755 (the user thought better of
/// it), 380 (the printer knows a setting better) and 0. The panel keeps its size, and is shown and drawn anew
/// on every way out.
void QsPrint();

} // namespace pulselark
