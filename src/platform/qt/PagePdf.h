#pragma once

#include "platform/PagePrinter.h"

#include <QPageSize>

class QPagedPaintDevice;

/// Pages on the toolkit's paper. A PDF needs no display and no printer.
namespace pulselark {

/// The paper of the user's country.
QPageSize PaperOfCountry();

/// Draws a page on a device whose page is the whole sheet and that has `resolution` dots to the inch. Failure
/// 57 if the device takes no painting; what the page's drawing throws comes back as its number.
Integer PaintOn(QPagedPaintDevice& device, int resolution, const PaperPage& page);

/// The page as a PDF of one sheet, its fonts embedded.
Integer PagePdf(const std::string& title, PaperSize paper, const PaperPage& page, std::string& bytes);

/// The same as a file, written whole or not at all.
Integer WritePagePdf(const std::string& name, const std::string& title, PaperSize paper,
                     const PaperPage& page);

} // namespace pulselark
