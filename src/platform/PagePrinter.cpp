#include "platform/PagePrinter.h"

namespace pulselark {

namespace {

class NoPrinterAtAll final : public PagePrinter {
public:
    Integer ChoosePrinter(const std::string& /*title*/) override { return FailureDeviceIO; }
    PaperSize Paper() override { return PaperA4; }
    Integer PaintPage(const PaperPage& /*page*/) override { return FailureDeviceIO; }
    Integer EndDocument() override { return FailureDeviceIO; }
    Integer MakePdf(const std::string& /*title*/, const std::function<PaperPage(PaperSize)>& /*page*/,
                    std::string& /*bytes*/) override {
        return FailureDeviceIO;
    }
};

} // namespace

PagePrinter& NoPrinter() {
    static NoPrinterAtAll printer;
    return printer;
}

} // namespace pulselark
