#pragma once

/// The training view as a whole: entering and leaving it, where its sessions come from, its settings form.
namespace pulselark {

/// The file menu's "training": keeps the layout, puts the module panels aside and starts the scenery. Nothing
/// happens while a file routine is at work. A recording goes on, and is what the training follows then.
void EnterTraining();

/// Back to the main view: the music ends, the scenery closes, the layout from before the training comes
/// back. A recording goes on in it, under the record button.
void LeaveTraining();

/// The file menu's "leave training": the same, to the layout that ships.
void LeaveTrainingToDefault();

/// The source switch: sessions of the training come from the stored session, or from a live monitor. What
/// runs ends. Refused during a recording.
void ChooseTrainingSource(bool stored);

/// `labBFSettings`: opens the settings form, or closes it.
void ClickTrainingSettings();
/// `labClose` of the form.
void CloseTrainingSettings();

/// `picScenery` of the form: the scenery's own menu opens once the scenery is back, or the user is told where
/// to choose.
void ChooseScenery();

} // namespace pulselark
