#pragma once

#include "base/Numbers.h"
#include "platform/Surface.h"

#include <string>

/// The music player's panel `picMCT`: two columns of songs, one of options, and a line to play, set the
/// volume and close. It is drawn text; a place of the mouse is turned into a zone.
namespace pulselark {

/// What lies under a point of the panel.
struct PlayerZone {
    enum class Kind { None, Song, ListRow, Add, Remove, Option, Play, Mute, Volume, Close };
    Kind What = Kind::None;
    int Row = 0; ///< of a song, list row or option, from 1

    bool operator==(const PlayerZone&) const = default;
};

inline constexpr double PlayerRowHeight = 32;
inline constexpr double PlayerPadding = 16;
inline constexpr double PlayerLineGap = 16; ///< above the last line
/// A heading, eight rows and the line below.
inline constexpr double PlayerPanelHeight = 10 * PlayerRowHeight + PlayerLineGap + 2 * PlayerPadding;

/// The zone at (x, y), pixels from the upper left corner of a panel of that width.
PlayerZone PlayerZoneAt(double x, double y, double width);

/// Where a zone lies, pixels from the upper left corner of a panel of that width; each is one row high.
struct PlayerZonePlace {
    double Left, Top, Width;
};
PlayerZonePlace PlaceOfZone(const PlayerZone& zone, double width);

/// The mouse is over a zone: its row is drawn on a plate. Rows 0 for none.
extern Integer HoverSong, HoverListRow, HoverOption;
void HoverPlayer(const PlayerZone& zone);
/// The click on a zone. The volume is `DragPlayerVolume`'s.
void ClickPlayer(const PlayerZone& zone);
/// The mouse holds the volume's knob at `x` of a panel of that width.
void DragPlayerVolume(double x, double width);

/// A name cut to `bound`: its last characters are dropped while it is wider and has at least 6.
std::string CutName(const Surface& surface, std::string name, double bound);

/// Draws the whole panel.
void DrawPlayer(Surface& picMCT);

/// The names of what can be pressed, for keyboards and screen readers: the zone's words as they are drawn.
std::string PlayerZoneText(const PlayerZone& zone);

} // namespace pulselark
