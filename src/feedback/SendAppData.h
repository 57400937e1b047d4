#pragma once

#include "base/Numbers.h"
#include "platform/link/LinkFormat.h"

#include <array>
#include <string>

/// The application link: one-way messages of numbers to the program whose title is `LinkWindowTitle`. A
/// partner that is not there costs a look-up and nothing else. docs/link.md has the messages byte for byte.
namespace pulselark {

extern std::string LinkWindowTitle; ///< title of the partner that was started last; start ""
extern Boolean SceneryOpen;         ///< the scenery has been started and not been closed since; start 0
/// Place of the scenery on the screen, filled whenever the panels are laid out: left, top, width, height in
/// pixels of the layout; start 0.
extern std::array<double, 4> SceneRect;

/// Sends a numbered command (`LinkCommand`) with four values. `CmdCloseScenery` clears `SceneryOpen`, whoever
/// has heard it.
void SendAppCommand(double command, double p1 = 0, double p2 = 0, double p3 = 0, double p4 = 0);

/// Sends an array: kind 0 the averaged spectrum of channel A at its newest slot, bins 1 to 255; kind 1 the
/// heart rate's spectrum of channel A, bins 1 to 127. Any other kind is not sent.
void SendAppArray(int kind);

/// Sends the coherence of `AnalysisSecond` as a percentage of 0.11, whatever the mode. It is not limited.
void SendCoherenceValue();
/// The value of the mode for the second.
void SendFeedbackValue();

/// Sends the number by which the chosen mode is followed: in mode 1 the mean interval (`IbiAvgA`), in mode 2
/// the coherence as above, in mode 3 `DynamicIndex`. Modes 0 and -1 have none, and nothing is sent.
void SendFeedbackValue();

/// Puts the variables of this header to their start values.
void ResetAppLink();

} // namespace pulselark
