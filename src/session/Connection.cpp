#include "session/Connection.h"

#include "feedback/MIDI_OUT.h"
#include "feedback/SendAppData.h"
#include "feedback/WMPPlay.h"
#include "session/Diagnostics.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/RecordingTime.h"

#include <utility>

namespace pulselark {

Boolean ConnectionLost = Off;

namespace {

constexpr Colour Red = 0x0000FF;
constexpr Long TimeBetweenTries = 3000;
// Levels of the training from which on the scenery scrolls.
constexpr double FirstScrollingLevel = 2;

Long lastSampleAt, lastTryAt;
bool samplesHaveCome, musicHeld;
std::string waitingText;

bool SceneryScrolls() {
    return TrainingActive != Off && FeedbackMode >= FirstScrollingLevel;
}

void HoldFeedback() {
    SilenceMidi();
    musicHeld = Playing != Off;
    FadeOutMusic();
    if (SceneryScrolls())
        SendAppCommand(CmdStopScroll);
}

void LetFeedbackGoOn() {
    if (SceneryScrolls())
        SendAppCommand(CmdStartScroll);
    // Who has left the training meanwhile wants no music.
    if (!std::exchange(musicHeld, false) || TrainingActive == Off)
        return;
    const bool stillDying = timFadeOut.Enabled;
    timFadeOut.Enabled = false;
    FadeStep = 0;
    RestoreVolume();
    PlaySource = On;
    if (!stillDying)
        PlayMusic();
}

void ShowLamp(int text) {
    labConnection.Caption = LanguageText(text);
    labConnection.ForeColour = Red;
    labConnection.Visible = true;
}

// Why the monitor gives nothing, if it can say more than that.
std::string Reason() {
    const std::string said = MonitorText();
    return said.empty() || said == LanguageText(TextMonitorLost) ? "" : " (" + said + ")";
}

void Lose(Long now) {
    ConnectionLost = On;
    lastTryAt = now;
    SignalQualityA = SignalQualityB = 0;
    SignalLightA = SignalLightB = 0;
    if (!samplesHaveCome) {
        ShowLamp(TextMonitorWaiting);
        return;
    }
    ++Diagnostics.Losses;
    ShowLamp(TextConnectionLamp);
    ShowStatus(LanguageText(TextConnectionLost) + Reason());
    HoldFeedback();
}

// The first samples are there.
void ShowRecording() {
    const std::string status = MonitorStatus();
    if (!waitingText.empty() || !status.empty())
        ShowStatus(LanguageText(TextRecording) + (status.empty() ? "" : " – " + status));
}

void ComeBack(Long now) {
    const bool lost = ConnectionLost != Off && samplesHaveCome;
    ConnectionLost = Off;
    labConnection = {};
    if (!lost) {
        ShowRecording();
        return;
    }
    const Long seconds = static_cast<Long>(Round(MillisecondsBetween(lastSampleAt, now) / 1000.0));
    ShowStatus(LanguageText(TextConnectionBack) + std::to_string(seconds));
    LetFeedbackGoOn();
}

// What the monitor says while nothing has come from it yet; in time also that it says nothing.
void ShowWaiting(bool silent) {
    const std::string said = MonitorText();
    if (said.empty() && !silent)
        return;
    const std::string text = said.empty() ? LanguageText(TextMonitorWaiting) : said;
    if (text != waitingText)
        ShowStatus(text);
    waitingText = text;
}

// A monitor that knows of its loss seeks by itself, and has time for a first sample once it has found.
void TryAgain(Long now, bool connected) {
    if (DeviceHandle > 0 && !connected)
        lastTryAt = now;
    if (MillisecondsBetween(lastTryAt, now) < TimeBetweenTries)
        return;
    ReopenMonitor();
    lastTryAt = now;
}

} // namespace

void BeginConnection(Long now) {
    ResetConnection();
    lastSampleAt = lastTryAt = now;
}

void WatchConnection(Long now, bool connected, bool samplesCame) {
    if (samplesCame) {
        if (!samplesHaveCome || ConnectionLost != Off)
            ComeBack(now);
        samplesHaveCome = true;
        lastSampleAt = now;
        return;
    }
    const bool silent = MillisecondsBetween(lastSampleAt, now) >= SilenceOfALoss;
    const bool saysSo = !connected && samplesHaveCome;
    if (ConnectionLost == Off && (silent || saysSo))
        Lose(now);
    if (!samplesHaveCome)
        ShowWaiting(silent);
    if (ConnectionLost != Off)
        TryAgain(now, connected);
}

bool SamplesHaveCome() {
    return samplesHaveCome;
}

void EndConnection() {
    ConnectionLost = Off;
    labConnection = {};
    musicHeld = false;
}

void ResetConnection() {
    EndConnection();
    lastSampleAt = lastTryAt = 0;
    samplesHaveCome = false;
    waitingText.clear();
}

} // namespace pulselark
