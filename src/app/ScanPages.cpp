#include "app/ScanPages.h"

#include "platform/Platform.h"
#include "platform/qt/QtSurface.h"
#include "quickscan/QsPage.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdlib>

namespace pulselark {

namespace {

int argumentCount = 0;
char** argumentValues = nullptr;

void StartToolkitOnce() {
    if (QGuiApplication::instance() != nullptr)
        return;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    new QGuiApplication(argumentCount, argumentValues); // lives until the process ends
}

// A sheet of white paper; the page is drawn at 1 / 1.1 of its size from its upper left corner, as on paper.
QImage SheetWithPage() {
    constexpr int Width = 1000;
    constexpr int Height = 1414;
    constexpr double Margin = 1.1;
    QtSurface page;
    page.Resize(static_cast<int>(std::lround(Width / Margin)), static_cast<int>(std::lround(Height / Margin)),
                1);
    page.SetForeColour(MakeColour(255, 255, 255));
    page.FilledBox(0, 0, page.Width(), page.Height());
    QsDrawOnPaper(page);
    QImage sheet(Width, Height, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter(&sheet).drawImage(0, 0, page.Picture());
    return sheet;
}

Integer WritePagePicture(const std::string& name) {
    StartToolkitOnce();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    SheetWithPage().save(&buffer, "PNG");
    return ThePlatform().Files.ReplaceWhole(name, bytes.toStdString());
}

} // namespace

PageWriters PagesOfToolkit(int argc, char** argv) {
    argumentCount = argc;
    argumentValues = argv;
    return {&WritePagePicture, nullptr};
}

} // namespace pulselark
