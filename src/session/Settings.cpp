#include "session/Settings.h"

namespace pulselark {

Boolean ShowAboutAtStart, AutoLoadPrevConfig, AutoScaleAll, ShowBackground, LockPanels, SnapPanels,
    ShortcutDone;
Boolean ShowGoldenRatio, ShowOctaveRatio, SolidFillGraph, OctaveInFront;
Boolean AutoEndSession, SpectrumPerHz;
Integer MovingAverageKnob, SerialPort;
Boolean QsShowPie, QsShowBands, QsShowReference, QsShowBpm;
Integer QsSmoothingChannel;
double BreathingRate, BreathingBalance;
Integer DynamicIndexInterval;
Boolean AutoStartBreathing, AutoPlayMusic;
Integer AdjustVolume;
Boolean AlwaysFirstSong, AutoRepeat;
std::array<std::string, 6> PlayList;
Boolean TrainingPanelOpen;
Integer PanelBackground;

void ResetSettings() {
    ShowAboutAtStart = AutoLoadPrevConfig = AutoScaleAll = ShowBackground = On;
    LockPanels = SnapPanels = ShortcutDone = Off;
    ShowGoldenRatio = ShowOctaveRatio = On;
    SolidFillGraph = OctaveInFront = Off;
    AutoEndSession = On;
    SpectrumPerHz = Off;
    MovingAverageKnob = 500;
    SerialPort = 1;
    QsShowPie = QsShowBands = QsShowReference = QsShowBpm = On;
    QsSmoothingChannel = 4;
    BreathingRate = 7.5;
    BreathingBalance = 1.0;
    DynamicIndexInterval = 16;
    AutoStartBreathing = AutoPlayMusic = Off;
    AdjustVolume = 50;
    AlwaysFirstSong = AutoRepeat = Off;
    PlayList.fill({});
    TrainingPanelOpen = Off;
    PanelBackground = 0;
}

} // namespace pulselark
