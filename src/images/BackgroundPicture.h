#pragma once

#include <QColor>
#include <QSize>

class QPainter;

/// What shows behind the module panels: a picture of the user's, or the program's own, which is drawn. A
/// picture is copied into the config folder as `background.picture`, so that it stays when its file goes; an
/// empty file, or none, stands for the program's own.
namespace pulselark {

/// The picture that was in use last. One that can no longer be shown is told, and the program's own is in
/// use.
void LoadBackgroundPicture();

/// Lets the user choose a picture file. A file that cannot be shown is told, and the background stays.
/// Returns whether it has changed.
bool ChooseBackgroundPicture();

/// The program's own background from now on. Returns whether it could be kept for the next start; a failure
/// is told, and the background stays.
bool UseOwnBackground();

struct Background {
    QColor Desk;  ///< its colour in the scheme
    bool Picture; ///< else the desk alone
};

/// Paints the background of a desk of `size`. A picture covers it, cut at two sides if it must, and is muted
/// towards the desk's colour; it is kept at the painter's density until something of this changes.
void PaintBackground(QPainter& painter, const QSize& size, const Background& background);

} // namespace pulselark
