#pragma once

/// The partner programs of the menus. One that cannot be started is told with a message.
namespace pulselark {

/// Starts the breathing tool "ryb.exe". Two seconds later it hears whether there is feedback, and the colour
/// scheme; it hears them under the title of the partner that was started before it.
void StartBreathingTool();

/// Starts "StoneGarden.exe", which hears nothing.
void StartStoneGarden();

/// Starts the tidal view "TidalRun.exe" and makes it the partner: from then on the seconds go to it alone,
/// and no panel is drawn (`AppLinkOnly`).
void StartTidalView();

/// The panels are drawn again, and the tidal view is told to close.
void LeaveTidalView();

/// Gives the breathing tool's timer its handler.
void InstallToolTimers();

} // namespace pulselark
