#pragma once

namespace pulselark {

/// Gives the session's timers their handlers; those of the start-up's own stages come with them.
void InstallTimerHandlers();

} // namespace pulselark
