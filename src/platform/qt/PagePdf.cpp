#include "platform/qt/PagePdf.h"

#include "platform/Platform.h"
#include "platform/qt/PrintSurface.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>

namespace pulselark {

namespace {

constexpr double UnitsPerInch = 96;
constexpr int Resolution = 1200; // fine enough for a position, whatever the printer

} // namespace

QPageSize PaperOfCountry() {
    const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

Integer PaintOn(QPagedPaintDevice& device, int resolution, const PaperPage& page) {
    QPainter painter;
    if (!painter.begin(&device))
        return FailureDeviceIO;
    painter.scale(resolution / UnitsPerInch, resolution / UnitsPerInch);
    try {
        PrintSurface surface(painter, page.Size.Width, page.Size.Height);
        page.Draw(surface);
    } catch (const Failure& failure) {
        return failure.Number;
    }
    return painter.end() ? Integer{0} : Integer{FailureDeviceIO};
}

Integer PagePdf(const std::string& title, PaperSize paper, const PaperPage& page, std::string& bytes) {
    QByteArray written;
    QBuffer buffer(&written);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setTitle(QString::fromStdString(title));
        pdf.setCreator("PulseLark");
        pdf.setResolution(Resolution);
        const QSizeF inches(paper.Width / UnitsPerInch, paper.Height / UnitsPerInch);
        pdf.setPageSize(QPageSize(inches, QPageSize::Inch));
        pdf.setPageMargins(QMarginsF());
        if (const Integer failure = PaintOn(pdf, Resolution, page); failure != 0)
            return failure;
    }
    bytes = written.toStdString();
    return 0;
}

Integer WritePagePdf(const std::string& name, const std::string& title, PaperSize paper,
                     const PaperPage& page) {
    std::string bytes;
    if (const Integer failure = PagePdf(title, paper, page, bytes); failure != 0)
        return failure;
    return ThePlatform().Files.ReplaceWhole(name, bytes);
}

} // namespace pulselark
