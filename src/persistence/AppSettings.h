#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// The settings of the main program, `config/app.oms`: 53 lines, of which the first 51 are read. They are the
/// variables of session/Settings.h but for the training's, and what the panels and the session keep between
/// runs: knobs, gains, styles, colours, language, channel mode, monitor.
namespace pulselark {

/// Reads the file of the program's folder at the start. After a failure `SetDefaultSettings` runs, and the
/// user has been told.
void LoadAppSettings();

/// Writes the file, whole or not at all. A failure is told.
void SaveAppSettings();

/// Every setting that has a default takes it; the others (snapping, the desktop entry's mark, the choices of
/// the quick scan, sound with the panels, the HRV's power) stay as they are.
void SetDefaultSettings();

/// The preset of the view menu: flat waterfalls, locked panels, less averaging.
void SetPresetSettings();

/// Takes the settings from the text of a file; values out of their range are held to it. Depth and spacing of
/// the waterfalls and the averaging follow their knobs. `TrainingActive` is not taken: a start does not lead
/// into the training. After a failure (62, 13, 6) what was read stays.
FileOutcome ReadAppSettingsText(std::string_view text);

/// The text of the settings as they are.
std::string AppSettingsText();

} // namespace pulselark
