#include "feedback/PlayerPanel.h"

#include "feedback/MidiSwitches.h"
#include "feedback/WMPPlay.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace pulselark {

Integer HoverSong = 0, HoverListRow = 0, HoverOption = 0;

namespace {

using Kind = PlayerZone::Kind;

// Columns as shares of the panel's width.
struct Column {
    double Left, Right;
};
constexpr Column SongColumn{0.04, 0.30}, ListColumn{0.31, 0.57}, OptionColumn{0.61, 0.85};
constexpr Column PlayColumn{0.04, 0.20}, MuteColumn{0.24, 0.29}, VolumeColumn{0.31, 0.72},
    CloseColumn{0.80, 0.96};
constexpr double SongBound = 0.24, ListBound = 0.28;

constexpr Colour Paper = 0xFFFFFF, Ink = MakeColour(31, 58, 58), Hint = MakeColour(90, 115, 115);
constexpr Colour Teal = MakeColour(31, 111, 106), Rule = MakeColour(213, 224, 219);
constexpr Colour Plate = MakeColour(238, 244, 241), ControlEdge = MakeColour(115, 143, 139);

struct Option {
    int Row;
    int Text;
    Boolean& Value;
    bool Ticked; // rows 3 and 4 are one option: its tick stands in the first
};
constexpr std::array Options{Option{1, TextPlayerAutoStart, AutoPlayMusic, true},
                             Option{3, TextPlayerAlwaysStart, AlwaysFirstSong, true},
                             Option{4, TextPlayerFirstSong, AlwaysFirstSong, false},
                             Option{6, TextPlayerAutoRepeat, AutoRepeat, true},
                             Option{8, TextPlayerAudioCue, MidiInTraining, true}};

bool In(const Column& column, double share) {
    return share >= column.Left && share < column.Right;
}

const Option* OptionAt(int row) {
    const auto found = std::find_if(Options.begin(), Options.end(),
                                    [row](const Option& option) { return option.Row == row; });
    return found == Options.end() ? nullptr : found;
}

PlayerZone ZoneInRows(double share, int row) {
    constexpr int ButtonRow = ShownSongs + 1;
    if (In(SongColumn, share))
        return row == ButtonRow ? PlayerZone{Kind::Add} : PlayerZone{Kind::Song, row};
    if (In(ListColumn, share))
        return row == ButtonRow ? PlayerZone{Kind::Remove} : PlayerZone{Kind::ListRow, row};
    if (In(OptionColumn, share) && OptionAt(row) != nullptr)
        return {Kind::Option, row};
    return {};
}

PlayerZone ZoneInLastLine(double share) {
    if (In(PlayColumn, share))
        return {Kind::Play};
    if (In(MuteColumn, share))
        return {Kind::Mute};
    if (In(VolumeColumn, share))
        return {Kind::Volume};
    return In(CloseColumn, share) ? PlayerZone{Kind::Close} : PlayerZone{};
}

// The selected song becomes the first of the list; what stood in row 8 is lost.
void AddToPlayList() {
    const std::string song = SongList.at(SelectedSong);
    if (song.empty())
        return;
    for (int row = PlayListRows; row > 1; --row)
        PlayList[row] = PlayList[row - 1];
    PlayList[1] = song;
    CurrentListIndex = 1;
    SongPosition = 0;
}

void RemoveFromPlayList() {
    for (int row = std::max<int>(SelectedListRow, 1); row < ShownSongs; ++row)
        PlayList[row] = PlayList[row + 1];
    PlayList[ShownSongs].clear();
    SelectedListRow =
        static_cast<Integer>(std::clamp<int>(SelectedListRow, 1, std::max(FilledListRows(), 1)));
    CurrentListIndex = 1;
    SongPosition = 0;
}

void PlayOrStop() {
    const bool stops = Playing != Off || PausedBetweenSongs != Off;
    PlaySource = Off;
    if (stops) {
        StopByHand();
    } else if (SelectedSong >= 1) {
        RewindSong();
        Playing = ToBoolean(PlayMusic() && !SongList.at(SelectedSong).empty());
    }
    ShowCurrentSong();
}

void ToggleOption(int row) {
    const Option* option = OptionAt(row);
    if (option == nullptr)
        return;
    if (option->Text == TextPlayerAudioCue)
        ToggleMidiTraining();
    else
        option->Value = static_cast<Boolean>(~option->Value);
}

constexpr double TextSize = 13;

/// Draws in pixels from the upper left corner.
class RowPen {
public:
    explicit RowPen(Surface& surface)
        : surface_(surface), width_(surface.Width()), height_(surface.Height()) {}

    double Width() const { return width_; }
    void Box(double left, double top, double right, double bottom, Colour colour) const {
        surface_.SetForeColour(colour);
        surface_.FilledBox(left, height_ - bottom, right, height_ - top);
    }
    /// A frame of one pixel with round corners.
    void Frame(double left, double top, double right, double bottom, Colour colour, double radius = 6) const {
        constexpr int Steps = 6;
        constexpr double Quarter = std::numbers::pi / 2;
        std::array<PanelPoint, 4 * (Steps + 1) + 1> rim;
        std::size_t i = 0;
        for (int corner = 0; corner < 4; ++corner) {
            const double x = corner == 0 || corner == 3 ? right - radius : left + radius;
            const double y = height_ - (corner < 2 ? top + radius : bottom - radius);
            for (int step = 0; step <= Steps; ++step, ++i) {
                const double angle = (corner + step / static_cast<double>(Steps)) * Quarter;
                rim[i] = {x + radius * std::cos(angle), y + radius * std::sin(angle)};
            }
        }
        rim.back() = rim.front();
        surface_.Stroke(rim, {.Ink = colour, .Width = 1});
    }
    /// Text in the middle of a row that begins at `top`.
    void Text(double x, double top, const std::string& text, Colour colour, bool bold = false) const {
        surface_.SetPageFont(TextSize, bold ? 500 : 400);
        surface_.SetForeColour(colour);
        const double height = surface_.TextHeight(text);
        surface_.Print(x, height_ - top - (PlayerRowHeight - height) / 2, text);
    }
    void Tick(double x, double top, Colour colour) const {
        const double y = height_ - top - PlayerRowHeight / 2;
        surface_.SetDrawWidth(2);
        const std::array<PanelPoint, 3> tick{{{x + 3, y}, {x + 6, y - 4}, {x + 13, y + 5}}};
        surface_.Curve(tick, colour);
        surface_.SetDrawWidth(1);
    }
    void Disc(double x, double y, double radius, Colour colour) const {
        constexpr std::size_t Corners = 48;
        std::array<PanelPoint, Corners> rim;
        double angle = 0;
        for (PanelPoint& point : rim) {
            point = {x + radius * std::cos(angle), height_ - y + radius * std::sin(angle)};
            angle += 2 * std::numbers::pi / Corners;
        }
        surface_.FilledArea(rim, colour);
    }
    /// A line of 1.5 pixels through points from the upper left corner.
    template <std::size_t N>
    void Stroke(std::array<PanelPoint, N> points, Colour colour) const {
        for (PanelPoint& point : points)
            point.Y = height_ - point.Y;
        surface_.Stroke(points, {.Ink = colour, .Width = 1.5});
    }
    std::string Cut(const std::string& name, double share) const {
        surface_.SetPageFont(TextSize, 400);
        return CutName(surface_, name, share * width_);
    }
    double TextWidth(const std::string& text) const { return surface_.TextWidth(text); }

private:
    Surface& surface_;
    double width_;
    double height_;
};

constexpr int LastLine = ShownSongs + 2;

double RowTop(int row) {
    return PlayerPadding + row * PlayerRowHeight +
           (row >= LastLine ? PlayerLineGap : 0); // row 0 is the heading
}

constexpr double TickRoom = 20;
constexpr double NumberRoom = 16;
constexpr double OptionBox = 16; // the side of the box that a tick stands in

void DrawSongs(const RowPen& pen) {
    const double left = SongColumn.Left * pen.Width();
    if (SongList[1].empty())
        pen.Text(left + TickRoom, RowTop(1), pen.Cut(LanguageText(TextPlayerNoSongs), SongBound), Hint);
    pen.Text(left + TickRoom, RowTop(0), LanguageText(TextPlayerSongs), Ink, true);
    for (int row = 1; row <= ShownSongs; ++row) {
        if (row == HoverSong)
            pen.Box(left - 4, RowTop(row), SongColumn.Right * pen.Width(), RowTop(row + 1), Plate);
        if (SongList[row].empty())
            continue;
        if (row == SelectedSong)
            pen.Tick(left, RowTop(row), Teal);
        const double room = SongBound - TickRoom / pen.Width();
        pen.Text(left + TickRoom, RowTop(row), pen.Cut(SongList[row], room), Ink);
    }
}

void DrawList(const RowPen& pen) {
    const double left = ListColumn.Left * pen.Width();
    pen.Text(left + TickRoom + NumberRoom + 4, RowTop(0), LanguageText(TextPlayerPlaylist), Ink, true);
    for (int row = 1; row <= ShownSongs; ++row) {
        if (row == HoverListRow)
            pen.Box(left - 4, RowTop(row), ListColumn.Right * pen.Width(), RowTop(row + 1), Plate);
        if (PlayList[row].empty())
            continue;
        if (row == SelectedListRow)
            pen.Tick(left, RowTop(row), Teal);
        const std::string number = std::to_string(row) + ".";
        pen.Text(left + TickRoom + NumberRoom - pen.TextWidth(number), RowTop(row), number, Hint);
        const double room = std::min(ListBound, ListColumn.Right - ListColumn.Left) -
                            (TickRoom + NumberRoom + 4) / pen.Width();
        pen.Text(left + TickRoom + NumberRoom + 4, RowTop(row), pen.Cut(PlayList[row], room), Ink);
    }
}

void DrawOptions(const RowPen& pen) {
    const double left = OptionColumn.Left * pen.Width();
    for (const Option& option : Options) {
        if (option.Row == HoverOption)
            pen.Box(left - 4, RowTop(option.Row), 0.96 * pen.Width(), RowTop(option.Row + 1), Plate);
        if (option.Ticked) {
            const double top = RowTop(option.Row) + (PlayerRowHeight - OptionBox) / 2;
            pen.Frame(left, top, left + OptionBox, top + OptionBox, ControlEdge, 3);
        }
        if (option.Ticked && option.Value != Off)
            pen.Tick(left, RowTop(option.Row), Teal);
        pen.Text(left + OptionBox + 8, RowTop(option.Row), LanguageText(option.Text), Ink);
    }
}

void DrawButton(const RowPen& pen, const Column& column, int row, const std::string& text) {
    constexpr double Inset = 2;
    const double left = column.Left * pen.Width();
    const double right = column.Right * pen.Width() - 4;
    pen.Frame(left, RowTop(row) + Inset, right, RowTop(row) + PlayerRowHeight - Inset, ControlEdge);
    const std::string shown = pen.Cut(text, column.Right - column.Left - 16 / pen.Width());
    pen.Text((left + right - pen.TextWidth(shown)) / 2, RowTop(row), shown, Ink);
}

// A loudspeaker, with a stroke through it while it is mute.
void DrawMute(const RowPen& pen) {
    const double x = MuteColumn.Left * pen.Width() + 4;
    const double y = RowTop(LastLine) + PlayerRowHeight / 2;
    pen.Stroke(std::array<PanelPoint, 7>{{{x, y - 3},
                                          {x + 3, y - 3},
                                          {x + 8, y - 7},
                                          {x + 8, y + 7},
                                          {x + 3, y + 3},
                                          {x, y + 3},
                                          {x, y - 3}}},
               Ink);
    if (imMusicOff.Visible) {
        pen.Stroke(std::array<PanelPoint, 2>{{{x - 1, y + 8}, {x + 15, y - 8}}}, Ink);
        return;
    }
    pen.Stroke(std::array<PanelPoint, 3>{{{x + 11, y - 3}, {x + 12.5, y}, {x + 11, y + 3}}}, Ink);
    pen.Stroke(std::array<PanelPoint, 3>{{{x + 13.5, y - 6}, {x + 16, y}, {x + 13.5, y + 6}}}, Ink);
}

void DrawVolume(const RowPen& pen) {
    constexpr double Track = 2, Knob = 8;
    const double middle = RowTop(LastLine) + PlayerRowHeight / 2;
    const double left = VolumeColumn.Left * pen.Width();
    const double right = (VolumeColumn.Right - 0.13) * pen.Width();
    const double x = left + (right - left) * PlayerVolume / 100;
    pen.Box(left, middle - Track, right, middle + Track, Rule);
    pen.Box(left, middle - Track, x, middle + Track, Teal);
    pen.Disc(x, middle, Knob, Teal);
    pen.Disc(x, middle, Knob - 2, Paper);
    pen.Text(right + 16, RowTop(LastLine), LanguageText(TextPlayerVolume) + std::to_string(PlayerVolume),
             Ink);
}

} // namespace

PlayerZone PlayerZoneAt(double x, double y, double width) {
    const double share = x / width;
    if (y >= RowTop(LastLine) && y < RowTop(LastLine) + PlayerRowHeight)
        return ZoneInLastLine(share);
    const int row = static_cast<int>((y - PlayerPadding) / PlayerRowHeight);
    if (y < RowTop(1) || row >= LastLine)
        return {};
    return ZoneInRows(share, row);
}

PlayerZonePlace PlaceOfZone(const PlayerZone& zone, double width) {
    const auto at = [width](const Column& column, int row) {
        return PlayerZonePlace{column.Left * width, RowTop(row), (column.Right - column.Left) * width};
    };
    constexpr int ButtonRow = ShownSongs + 1;
    switch (zone.What) {
    case Kind::Song:
        return at(SongColumn, zone.Row);
    case Kind::ListRow:
        return at(ListColumn, zone.Row);
    case Kind::Option:
        return at(OptionColumn, zone.Row);
    case Kind::Add:
        return at(SongColumn, ButtonRow);
    case Kind::Remove:
        return at(ListColumn, ButtonRow);
    case Kind::Mute:
        return at(MuteColumn, LastLine);
    case Kind::Volume:
        return at(VolumeColumn, LastLine);
    case Kind::Close:
        return at(CloseColumn, LastLine);
    case Kind::Play:
    case Kind::None:
        break;
    }
    return at(PlayColumn, LastLine);
}

void HoverPlayer(const PlayerZone& zone) {
    const auto rowOf = [&zone](Kind kind) { return static_cast<Integer>(zone.What == kind ? zone.Row : 0); };
    HoverSong = rowOf(Kind::Song);
    HoverListRow = rowOf(Kind::ListRow);
    HoverOption = rowOf(Kind::Option);
    DrawPlayerPanel();
}

void ClickPlayer(const PlayerZone& zone) {
    switch (zone.What) {
    case Kind::Song:
        SelectedSong = static_cast<Integer>(zone.Row);
        StopByHand();
        break;
    case Kind::ListRow:
        SelectedListRow = static_cast<Integer>(zone.Row);
        break;
    case Kind::Add:
        AddToPlayList();
        break;
    case Kind::Remove:
        RemoveFromPlayList();
        break;
    case Kind::Option:
        ToggleOption(zone.Row);
        break;
    case Kind::Play:
        PlayOrStop();
        break;
    case Kind::Mute:
        ToggleMute();
        break;
    case Kind::Close:
        PlayerPanelOpen = Off;
        break;
    case Kind::Volume:
    case Kind::None:
        return;
    }
    DrawPlayerPanel();
}

void DragPlayerVolume(double x, double width) {
    const double left = VolumeColumn.Left * width;
    const double right = (VolumeColumn.Right - 0.13) * width;
    const double percent = std::clamp((x - left) / (right - left) * 100, 0.0, 100.0);
    AdjustMusicVolume(static_cast<Integer>(Round(percent)));
}

std::string CutName(const Surface& surface, std::string name, double bound) {
    constexpr std::size_t ShortestCut = 6;
    while (name.size() >= ShortestCut && surface.TextWidth(name) > bound) {
        do // a character of several bytes goes whole
            name.pop_back();
        while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U);
        if (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0xC0U)
            name.pop_back();
    }
    return name;
}

void DrawPlayer(Surface& picMCT) {
    const RowPen pen(picMCT);
    picMCT.Clear();
    pen.Box(0, 0, picMCT.Width(), picMCT.Height(), Paper);
    DrawSongs(pen);
    DrawList(pen);
    DrawOptions(pen);
    DrawButton(pen, SongColumn, ShownSongs + 1, LanguageText(TextPlayerAdd));
    DrawButton(pen, ListColumn, ShownSongs + 1, LanguageText(TextPlayerRemove));
    const double rule = RowTop(LastLine) - PlayerLineGap / 2;
    pen.Box(SongColumn.Left * pen.Width(), rule, CloseColumn.Right * pen.Width(), rule + 1, Rule);
    DrawButton(pen, PlayColumn, LastLine, PlayerZoneText({Kind::Play}));
    DrawButton(pen, CloseColumn, LastLine, LanguageText(TextPlayerClose));
    DrawMute(pen);
    DrawVolume(pen);
}

std::string PlayerZoneText(const PlayerZone& zone) {
    switch (zone.What) {
    case Kind::Song:
        return SongList.at(zone.Row);
    case Kind::ListRow:
        return PlayList.at(zone.Row);
    case Kind::Add:
        return LanguageText(TextPlayerAdd);
    case Kind::Remove:
        return LanguageText(TextPlayerRemove);
    case Kind::Option:
        return OptionAt(zone.Row) != nullptr ? LanguageText(OptionAt(zone.Row)->Text) : "";
    case Kind::Play:
        return LanguageText(Playing != Off || PlaySource != Off ? TextPlayerStop : TextPlayerPlay);
    case Kind::Mute:
        return LanguageText(imMusicOff.Visible ? TextPlayerUnmute : TextPlayerMute);
    case Kind::Volume:
        return LanguageText(TextPlayerVolume) + std::to_string(PlayerVolume);
    case Kind::Close:
        return LanguageText(TextPlayerClose);
    case Kind::None:
        break;
    }
    return {};
}

} // namespace pulselark
