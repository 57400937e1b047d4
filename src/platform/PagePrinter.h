#pragma once

#include "base/Numbers.h"

#include <functional>
#include <string>

namespace pulselark {

class Surface;

/// A sheet of paper in panel units, 96 to the inch.
struct PaperSize {
    double Width;
    double Height;
};

/// Sheets that a page is made for where there is no printer to ask.
inline constexpr PaperSize PaperA4{210 / 25.4 * 96, 297 / 25.4 * 96};
inline constexpr PaperSize PaperLetter{8.5 * 96, 11.0 * 96};

/// A page that goes to paper. `Draw` gets a surface of that size, which lies in the upper left corner of the
/// sheet; the rest of the sheet stays white. It may throw a `Failure`.
struct PaperPage {
    PaperSize Size;
    std::function<void(Surface& page)> Draw;
};

/// The printer of the user's choice. A document is one choice, its pages, its end; a step that failed ends
/// it. All return 0 or the failure's number.
class PagePrinter {
public:
    virtual ~PagePrinter() = default;
    /// The user chooses printer and paper. 32755 if the user thought better of it.
    virtual Integer ChoosePrinter(const std::string& title) = 0;
    /// The chosen sheet, whole, as it is turned.
    virtual PaperSize Paper() = 0;
    virtual Integer PaintPage(const PaperPage& page) = 0;
    virtual Integer EndDocument() = 0;

    /// The page as the bytes of a PDF file on the paper of the user's country, with no printer asked; failure
    /// 57 where there is none to make it.
    virtual Integer MakePdf(const std::string& title, const std::function<PaperPage(PaperSize paper)>& page,
                            std::string& bytes) = 0;
};

/// The printer of a program that has none.
PagePrinter& NoPrinter();

} // namespace pulselark
