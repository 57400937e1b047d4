#include "app/WindowStart.h"

#include "app/Commands.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "platform/system/FindProgramFolder.h"
#include "session/StartUp.h"
#include "workspace/Look.h"
#include "workspace/ProgramStyle.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QToolTip>
#include <QWidget>

namespace pulselark {

void StartToolkit() {
    QApplication::setApplicationName("PulseLark");
    auto* style = new ProgramStyle; // the application keeps it
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());
    QApplication::setFont(TextFont(13));
    QToolTip::setFont(TextFont(12));
}

void StartCore(bool readSettings) {
    SetProgramFolder(FindProgramFolder());
    SetShippedFolder(FindShippedFolder());
    InitApplication(readSettings);
}

int SavePicture(QWidget& window, const std::string& name) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    window.grab().save(&buffer, "PNG");
    const Integer failure = ThePlatform().Files.ReplaceWhole(name, bytes.toStdString());
    return failure == 0 ? ExitSuccess : ComplainOfFile(name, failure, 0);
}

} // namespace pulselark
