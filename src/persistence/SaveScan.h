#pragma once

/// The export of a quick scan as a scan file.
namespace pulselark {

/// The file menu's entry: the training's form of the file in training, else the plain form. With both
/// channels and a scan on show, the channel that is not on show is measured first.
void ExportScan();

/// Saves the results as they stand under a name that the user chooses. A session below 5 seconds has nothing
/// to save, and the user is told so. `LastFileResult` is 999 after a success, 32755 after a cancelled dialog,
/// else the number of the failure, which the user has been told. The session and its name stay as they are.
void SaveScan();

/// The same in the training's form; power, rate, coherence and the session's score of channel A are computed
/// first.
void SaveTrainingScan();

/// Computes what the training's form holds: the results of channel A and `SessionScore`.
void MeasureTrainingScan();

} // namespace pulselark
