#pragma once

#include "base/Numbers.h"

#include <QImage>
#include <QStringList>

/// Picture files by the toolkit's readers and writers.
namespace pulselark {

/// Writes a picture, whole or not at all, in the format that the name ends in: PNG, JPEG, BMP or WebP, as far
/// as the toolkit can write them, or SVG, which holds the picture as it is. What a format cannot show as
/// see-through becomes white. Returns 0 or the failure's number; 52 for a name with no such ending.
Integer SavePictureAs(const QImage& picture, const QString& name);

/// The picture formats that can be written, as filters of a file dialog, PNG first.
QStringList PictureFilters();

/// The endings of the pictures that can be read, such as "*.png *.jpg *.svg".
QString ReadablePictures();

/// Whether the bytes are a picture that is drawn anew for each size.
bool IsVectorPicture(const QByteArray& bytes);

/// A picture of any format that can be read, told by its content, upright as its camera was held. It is made
/// as small as it can be while it still covers `cover` (device pixels); a vector picture is always of that
/// size. Null if the bytes are no such picture, or it is too large to hold.
QImage ReadPicture(const QByteArray& bytes, const QSize& cover);

} // namespace pulselark
