#pragma once

namespace pulselark {

/// The orderly end of the program, from the file menu and the close box: partners are told, an unsaved
/// session is asked about, settings and layout are written. Returns whether the program may end now; a
/// cancelled question, or a save that failed, brings the user back.
bool ExitProgram();

/// The end from outside, by a signal: the same without a question and whatever the program is doing, sound
/// first. What is not saved goes, but for a recording, which stays in its journal.
void EndProgram();

} // namespace pulselark
