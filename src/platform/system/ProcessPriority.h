#pragma once

namespace pulselark {

/// Lets the program run at a high priority (nice value -5, or the one it was started with if that is higher
/// still), or again at the one it was started with. It holds for the calling thread and for the threads that
/// it starts afterwards. Returns 0, or the `errno` of a refusal; then nothing has changed.
int SetProcessPriority(bool high);

} // namespace pulselark
