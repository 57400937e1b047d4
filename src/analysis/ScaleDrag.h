#pragma once

/// The scales of all panels around one drag of the mouse, whichever panel it is on.
namespace pulselark {

/// The press: what the scales are now is what Escape brings back.
void BeginScaleDrag();

/// Escape: the scales are what they were at the press, and all panels are drawn to stay.
void CancelScaleDrag();

/// The release: all panels are drawn once more, to stay.
void EndScaleDrag();

} // namespace pulselark
