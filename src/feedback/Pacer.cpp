#include "feedback/Pacer.h"

#include "base/Text.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace pulselark {

Label labBR, labBB, labFibo, labBRB, labDIBFTime, labVol, labAutoPlayMusic, labAutoStartBT;
double BalanceDrawn = 0;
Boolean TrainingSettingsOpen = Off;

namespace {

constexpr int PhiTenths = 16;

struct BalanceRatio {
    double Stored; // as the scroll bar gives it
    const char* Text;
    double Exact;
};
constexpr std::array<BalanceRatio, 11> Ratios{{{1.5, "2 : 3", 1.5},
                                               {1.6, "Phi", std::numbers::phi},
                                               {1.7, "3 : 5", 5.0 / 3},
                                               {2.5, "2 : 5", 2.5},
                                               {2.6, "5: 13", 13.0 / 5},
                                               {2.7, "3 : 8", 8.0 / 3},
                                               {4.0, "2 : 8", 4.0},
                                               {4.2, "5 : 21", 4.2},
                                               {4.3, "3 : 13", 13.0 / 3},
                                               {6.5, "2 : 13", 6.5},
                                               {7.0, "3 : 21", 7.0}}};

// The comparison is exact: a balance that was replaced by a ratio's value, and comes back from the settings,
// is no longer read as that ratio.
void ReadRatio() {
    const auto ratio = std::find_if(Ratios.begin(), Ratios.end(),
                                    [](const BalanceRatio& row) { return row.Stored == BreathingBalance; });
    labFibo.Visible = ratio != Ratios.end();
    if (ratio == Ratios.end()) {
        labBB.Caption = "1 : " + OneDecimal(BreathingBalance);
        return;
    }
    labBB.Caption = ratio->Text;
    BreathingBalance = ratio->Exact;
}

// picBWave has a scale of its own, -10 to 110 both ways.
PanelPoint OnWave(double x, double y) {
    return {(x + 10) / 120 * picBWave->Width(), (y + 10) / 120 * picBWave->Height()};
}

void WaveLine(double x1, double y1, double x2, double y2, Colour colour) {
    const PanelPoint a = OnWave(x1, y1);
    const PanelPoint b = OnWave(x2, y2);
    picBWave->Line(a.X, a.Y, b.X, b.Y, colour);
}

void DrawWave() {
    constexpr Colour White = MakeColour(255, 255, 255);
    constexpr int Points = 100;
    const double in = 2 / (BreathingBalance + 1);
    const double out = BreathingBalance * in;
    std::array<PanelPoint, Points> points{};
    double x = 0;
    for (int i = 0; i < Points; ++i) {
        // The 50th value ends the in-breath and begins the out-breath.
        const int angle = i < 50 ? i + 1 : i;
        const double y = 50 + 50 * std::sin(std::numbers::pi / 2 - 2 * std::numbers::pi * angle / 100);
        points[static_cast<std::size_t>(i)] = OnWave(x, y);
        x += i < 50 ? in : out;
    }
    picBWave->Clear();
    picBWave->SetDrawWidth(2);
    picBWave->Curve(points, White);
    picBWave->SetDrawWidth(1);
    const double turn = 100 / (BreathingBalance + 1);
    WaveLine(turn, 0, turn, 100, White);
    BalanceDrawn = BreathingBalance;
}

void ShowPhaseTimes() {
    const double total = 60 / BreathingRate;
    const double in = total / (BreathingBalance + 1);
    const double out = total * BreathingBalance / (BreathingBalance + 1);
    labBRB.Caption = LanguageText(TextBreathIn) + OneDecimal(in) + LanguageText(TextBreathOut) +
                     OneDecimal(out) + LanguageText(TextBreathTotal) + OneDecimal(total) +
                     LanguageText(TextBreathSeconds);
}

void ShowRate() {
    std::array<char, LongestDouble> text{};
    char* const end = WriteDouble(text.data(), BreathingRate);
    labBR.Caption = std::string(text.data(), end) + LanguageText(TextPerMinute);
}

void ShowInterval() {
    labDIBFTime.Caption = DynamicIndexInterval >= MostInterval
                              ? LanguageText(TextEntireSession)
                              : std::to_string(DynamicIndexInterval) + LanguageText(TextSecondsShort);
}

void ShowSwitches() {
    labAutoPlayMusic.Caption =
        LanguageText(AutoPlayMusic != Off ? TextAutoPlayMusicYes : TextAutoPlayMusicNo);
    labAutoStartBT.Caption =
        LanguageText(AutoStartBreathing != Off ? TextAutoStartBreathingYes : TextAutoStartBreathingNo);
    labVol.Caption = "%" + std::to_string(AdjustVolume);
}

} // namespace

void MoveBreathingRate(int value) {
    BreathingRate = std::clamp(value, LeastRate, MostRate) / 10.0;
    ShowRate();
    DrawBreathingWave();
    SendAppCommand(CmdBreathingRate, BreathingRate);
}

void MoveBreathingBalance(int value) {
    BreathingBalance = std::clamp(value, LeastBalance, MostBalance) / 10.0;
    DrawBreathingWave();
}

void MoveIndexInterval(int value) {
    DynamicIndexInterval = static_cast<Integer>(std::clamp(value, LeastInterval, MostInterval));
    ShowInterval();
}

void MoveVolume(int value) {
    AdjustMusicVolume(static_cast<Integer>(std::clamp(value, 0, MostVolume)));
    ShowSwitches();
}

void ChoosePhi() {
    MoveBreathingBalance(PhiTenths);
}

void ToggleAutoPlayMusic() {
    AutoPlayMusic = static_cast<Boolean>(~AutoPlayMusic);
    ShowSwitches();
    DrawPlayerPanel();
}

void ToggleAutoStartBreathing() {
    AutoStartBreathing = static_cast<Boolean>(~AutoStartBreathing);
    ShowSwitches();
    if (AutoStartBreathing == Off)
        SendAppCommand(CmdPacerOff);
}

void NextPanelBackground() {
    PanelBackground = static_cast<Integer>(PanelBackground >= 2 ? 0 : PanelBackground + 1);
}

void SetUpBreathingWave() {
    constexpr Colour GridColour = MakeColour(199, 210, 247);
    constexpr Colour Black = 0;
    picBWave->SetDrawWidth(1);
    for (int x = 10; x <= 100; x += 10)
        WaveLine(x, 100, x, 0, GridColour);
    for (int y = 20; y <= 100; y += 20)
        WaveLine(0, y, 100, y, GridColour);
    WaveLine(-10, 0, 110, 0, Black);
    WaveLine(0, -10, 0, 110, Black);
    // The ends of the two axes.
    constexpr double Tick = 3;
    WaveLine(100, -Tick, 100, Tick, Black);
    WaveLine(-Tick, 100, Tick, 100, Black);
    picBWave->StorePicture(*picBWave);
    BalanceDrawn = 0;
}

void DrawBreathingWave() {
    ReadRatio();
    if (BreathingBalance != BalanceDrawn)
        DrawWave();
    ShowPhaseTimes();
    SendAppCommand(CmdBreathingBalance, BreathingBalance);
}

void ShowTrainingSettings() {
    ShowRate();
    ShowInterval();
    ShowSwitches();
    DrawBreathingWave();
}

void ResetPacer() {
    for (Label* label :
         {&labBR, &labBB, &labFibo, &labBRB, &labDIBFTime, &labVol, &labAutoPlayMusic, &labAutoStartBT})
        *label = {};
    BalanceDrawn = 0;
    TrainingSettingsOpen = Off;
}

} // namespace pulselark
