#pragma once

namespace pulselark {

/// Whether the session in the buffers may be dropped. An unsaved session of more than 16 seconds is asked
/// about with the given language text: yes saves it first (and a save that fails or is cancelled means no),
/// no drops it, cancel means no.
bool MayDropSession(int questionText);

} // namespace pulselark
