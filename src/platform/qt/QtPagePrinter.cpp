#include "platform/qt/QtPagePrinter.h"

#include "platform/qt/PagePdf.h"

#include <QPrintDialog>

namespace pulselark {

namespace {

constexpr double PointsPerInch = 72;
constexpr double UnitsPerInch = 96;

PaperSize InUnits(const QSizeF& points) {
    return {points.width() / PointsPerInch * UnitsPerInch, points.height() / PointsPerInch * UnitsPerInch};
}

} // namespace

Integer QtPagePrinter::ChoosePrinter(const std::string& title) {
    if (printer_ == nullptr) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setCreator("PulseLark");
    }
    printer_->setDocName(QString::fromStdString(title));
    QPrintDialog dialog(printer_.get(), owner_);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile);
    return dialog.exec() == QDialog::Accepted ? Integer{0} : Integer{FailureCancelled};
}

PaperSize QtPagePrinter::Paper() {
    if (printer_ == nullptr)
        return PaperA4;
    return InUnits(printer_->pageLayout().fullRect(QPageLayout::Point).size());
}

Integer QtPagePrinter::PaintPage(const PaperPage& page) {
    if (printer_ == nullptr)
        return FailureDeviceIO;
    printer_->setFullPage(true); // the page brings its own margin
    return PaintOn(*printer_, printer_->resolution(), page);
}

// The painting of a page hands it to the printer; what went wrong there shows now.
Integer QtPagePrinter::EndDocument() {
    const bool failed = printer_ == nullptr || printer_->printerState() == QPrinter::Error ||
                        printer_->printerState() == QPrinter::Aborted;
    return failed ? Integer{FailureDeviceIO} : Integer{0};
}

Integer QtPagePrinter::MakePdf(const std::string& title,
                               const std::function<PaperPage(PaperSize paper)>& page, std::string& bytes) {
    const PaperSize paper = InUnits(PaperOfCountry().size(QPageSize::Point));
    return PagePdf(title, paper, page(paper), bytes);
}

} // namespace pulselark
