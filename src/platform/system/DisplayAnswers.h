#pragma once

namespace pulselark {

/// Whether a window can be shown: the toolkit has been told what to show it on, or a display that the
/// environment names takes a connection. A name of a display that is gone would end the toolkit, and the
/// program with it.
bool DisplayAnswers();

} // namespace pulselark
