#pragma once

#include <string>

class QWidget;

/// The first steps of a program with a window, whichever command it runs.
namespace pulselark {

/// Style, fonts and tool tips of the application; after the application object has been made.
void StartToolkit();

/// Folders, texts and start values; after the platform has been installed. With `readSettings` what the last
/// run left.
void StartCore(bool readSettings);

/// Saves what a window shows. Returns the exit code; a failure has been told.
int SavePicture(QWidget& window, const std::string& name);

} // namespace pulselark
