#pragma once

#include <string>

/// This side of the scenery, which is a program of its own: starting it in its place, telling it how the
/// training stands, and the cover (`picRestoreGame`) that stands in for it while it is not there. Whether it
/// lives is not watched; a person who has closed it clicks on the cover.
namespace pulselark {

/// Lays the panels and the scenery's place out, makes "WideFeedback" the partner and starts "WideFB.exe". A
/// program that cannot be started is nobody's failure. `timSendGameSetup` tells it how things stand, once it
/// has had the time to come up.
void StartWideFeedback();

/// The scenery starts two seconds from now, and the mode's state is applied then.
void LaunchDelayed(const std::string& tool);

/// Tells the scenery how things stand: its place (or, with `keepScene`, to keep what it shows), the mode, the
/// breathing rate, and whether the pacer runs. The cover offers a click after five seconds.
void SendSceneryState(bool keepScene);

/// A click on the cover or on its caption.
void ClickRestoreGame();

/// The scenery was to be chosen while the cover hides it: the cover says what to do first.
void RefuseSceneryChoice();

/// A file dialog is about to hide the scenery: the cover stands in.
void PrepareForFileDialog();

/// Gives the scenery's timers their handlers.
void InstallSceneryTimers();

} // namespace pulselark
