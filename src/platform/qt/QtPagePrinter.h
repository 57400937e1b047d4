#pragma once

#include "platform/PagePrinter.h"

#include <QPointer>
#include <QPrinter>
#include <QWidget>

#include <memory>

namespace pulselark {

/// The printers of the system, chosen in the system's own dialog, "print to file" among them.
class QtPagePrinter final : public PagePrinter {
public:
    /// The window that the dialog stands over.
    void SetOwner(QWidget* owner) { owner_ = owner; }

    Integer ChoosePrinter(const std::string& title) override;
    PaperSize Paper() override;
    Integer PaintPage(const PaperPage& page) override;
    Integer EndDocument() override;
    Integer MakePdf(const std::string& title, const std::function<PaperPage(PaperSize paper)>& page,
                    std::string& bytes) override;

private:
    QPointer<QWidget> owner_;
    std::unique_ptr<QPrinter> printer_; // of the document under way; kept for its choices afterwards
};

} // namespace pulselark
