#pragma once

/// The rescan after a load.
namespace pulselark {

/// Recomputes the coherence of every second of the session, then the moving averages once; with
/// `showProgress` under the progress form. What it leaves in the transform buffers, rings and counts is
/// carried into the replay.
void RescanSession(bool showProgress);

} // namespace pulselark
