#pragma once

namespace pulselark {

/// Starts a live recording. Returns false if there is none to be had: there is no monitor yet.
bool StartRecording();

/// Ends the live recording that runs. Returns false if none does.
bool StopRecording();

} // namespace pulselark
