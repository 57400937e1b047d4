#pragma once

#include "base/Numbers.h"

namespace pulselark {

/// The program's first step, before any window: start values, handlers of the timers, texts, folders, no
/// session. With `readSettings` the settings and, if the user wants it, the layout of the last run are read;
/// a command that leaves a picture does without, so that it looks the same for everybody.
void InitApplication(bool readSettings);

/// The start after the splash: enables the first of the stages, `timStartUp`, which leads to `timShowModules`
/// and the first paint of all panels. With `waiting` false the stages follow each other at once.
void BeginStartUp(bool waiting);

/// All stages in one go, for a window that nobody waits for.
void FinishStartUp();

/// The stages are under way, from `InitApplication` to the end of the second; start -1.
extern Boolean StartingUp;

} // namespace pulselark
