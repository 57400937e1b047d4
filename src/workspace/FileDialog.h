#pragma once

#include <QString>

class QFileDialog;

namespace pulselark {

/// Asks for a file: the name chosen, or an empty one. The toolkit's own dialog gets the room that its columns
/// need; one of the desktop keeps its looks.
QString RunFileDialog(QFileDialog& dialog);

} // namespace pulselark
