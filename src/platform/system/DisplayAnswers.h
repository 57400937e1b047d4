#pragma once

namespace pulselark {

/// Whether a window can be shown: the toolkit has been told what to show it on, or a display that the
/// environment names takes a connection. A name of a display that is gone would end the toolkit, and the
/// program with it.
bool DisplayAnswers();

/// Has the toolkit show windows through an X server where one answers, also one that a Wayland compositor
/// brings along, unless the environment says on what: the scenery has to stand in its frame of the training,
/// and Wayland lets no window choose its place.
void PreferPlacedWindows();

} // namespace pulselark
