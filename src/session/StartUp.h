#pragma once

namespace pulselark {

/// The program's first step, before any window: start values, handlers of the timers, language pack, folders
/// of the file dialogs, no session.
void InitApplication();

} // namespace pulselark
