#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// The configuration file, `.htc`: a layout of the screen in 56 lines, eight records of seven values: left,
/// top, height, width (twips), visible, style, on the canvas. The first seven are `picModule`, the last the
/// window's.
namespace pulselark {

/// Places the panels from the text of a configuration, one after the other; whether they are to show goes to
/// `PanelVisible` and not to the panels yet. The window's record places `frmScale`, not `frmCanvas` that it
/// was written from; the window's visibility is not used. Lengths are held to a million twips, and sizes to 0
/// at least.
///
/// Failures: 62 the text ends early; 13 a value of another type; 6 a number that does not fit. What was read
/// before a failure stays.
FileOutcome ReadConfigText(std::string_view text);

/// The text of the layout as it is; the window's record comes from `frmCanvas`.
std::string ConfigText();

/// Fills `ConfigPreview` from the text of a configuration, rows 0 to 6 and 10. Lengths are taken as 16-bit
/// numbers: one that does not fit ends the reading with failure 6; else the failures are the same.
/// With a `share` above 1 they are divided by it, so that a wide window has room.
FileOutcome ReadConfigPreview(std::string_view text, int share = 1);

} // namespace pulselark
