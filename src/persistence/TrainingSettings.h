#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// The settings of the training mode, `config/app_ggz.oms`: 20 lines, the training's variables of
/// session/Settings.h and `MidiInTraining`.
namespace pulselark {

/// Reads the file of the program's folder, after `LoadAppSettings`. After a failure the training's defaults
/// are set, the settings of the main program stay, and the user has been told.
void LoadTrainingSettings();

/// Writes the file, whole or not at all. A failure is told.
void SaveTrainingSettings();

/// Rate, balance, interval and the two switches that start by themselves take their defaults; the others stay
/// as they are.
void SetDefaultTrainingSettings();

/// Takes the settings from the text of a file; values out of their range are held to it. After a failure (62,
/// 13, 6) what was read stays.
FileOutcome ReadTrainingSettingsText(std::string_view text);

/// The text of the settings as they are.
std::string TrainingSettingsText();

} // namespace pulselark
