#pragma once

#include "platform/Surface.h"

/// The pad `picST` of the settings form, on which sounds are tried out: to the sides is pitch, up and down is
/// loudness.
namespace pulselark {

// The hill's place, -80 to 80 (start 0), and its height less 50, -45 to 0 (start -25).
extern double SoundTesterX, SoundTesterY;

/// The mouse was dragged by so many pixels, y downwards: moves the hill and sounds a test chord once the
/// place has moved by 3 or the height by 2 since the last one, if the output takes notes. Right is lower, up
/// is louder.
void DragSoundTester(double dx, double dy);

/// Draws the hill over the whole width of the pad, and the point on its top, in the surface's foreground
/// colour.
void DrawSoundTester(Surface& picST);

/// The hill stands in the middle at half its height, nothing has sounded.
void ResetSoundTester();

} // namespace pulselark
