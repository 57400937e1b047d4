#include "session/MonitorChoice.h"

#include "base/Text.h"
#include "persistence/AppSettings.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>

namespace pulselark {

const std::array<PlainMonitor, 4> PlainMonitors{{{"Simulated ECG", TextMonitorSimulated},
                                                 {"Serial ECG", TextMonitorSerial},
                                                 {"Heart strap", TextMonitorStrap},
                                                 {"Replay file", TextMonitorReplay}}};

std::array<PictureSign, DsuCount> picSelect;
Label labS, labOK;
Boolean ChooserOpen = Off;

namespace {

constexpr const char* ReplayFilter = "PulseLark channel data, WFDB (*.hti *.hea)|*.hti";

void ShowChoice() {
    labOK.Visible = MonitorChosen();
    timNA.Enabled = false;
    if (MonitorName == NotAvailable)
        labS.Caption = LanguageText(TextMonitorNotAvailable);
    else
        labS.Caption = MonitorChosen() ? MonitorName : LanguageText(TextMonitorSelect);
}

void Choose(const std::string& name) {
    if (SessionRunning != Off)
        return;
    MonitorName = name;
    ShowChoice();
    timNA.Enabled = name == NotAvailable;
}

void NotAvailableTick() {
    timNA.Enabled = false;
    labS.Caption = LanguageText(TextMonitorSelect);
}

} // namespace

bool MonitorChosen() {
    const auto isNamed = [](const PlainMonitor& monitor) { return MonitorName == monitor.Name; };
    return MonitorName == "C2" || MonitorName == "C2PP" || MonitorName == "Vilistus" ||
           std::any_of(PlainMonitors.begin(), PlainMonitors.end(), isNamed);
}

void OpenMonitorChooser() {
    if (SessionRunning != Off)
        return;
    ChooserOpen = On;
    ShowChoice();
    if (MonitorName == NotAvailable)
        NotAvailableTick();
}

void OfferMonitorChooser() {
    if (!MonitorChosen() && DryTesting == Off)
        OpenMonitorChooser();
}

void CloseMonitorChooser() {
    if (ChooserOpen == Off)
        return;
    ChooserOpen = Off;
    timNA.Enabled = false;
    PointAtDsu(-1);
    if (MonitorChosen() && labStatus.Caption == LanguageText(TextNoMonitorChosen))
        ShowStatus(LanguageText(TextReady));
    SaveAppSettings(); // a monitor once chosen outlasts a power cut
    const Integer failure = ThePlatform().EcgMonitors.KeepOptions();
    if (failure != 0)
        ThePlatform().Messages.Show(LanguageText(TextMonitorOptionsNotKept) + std::to_string(failure),
                                    ButtonOK, WarningManner);
}

void PressDsu(int picture, bool shift) {
    if (picture == 0)
        Choose(shift ? "C2" : "C2PP");
    if (picture == 1)
        Choose("Vilistus");
    if (picture == 2)
        Choose(NotAvailable);
}

void PointAtDsu(int picture) {
    for (int i = 0; i < DsuCount; ++i)
        picSelect.at(static_cast<std::size_t>(i)).Visible = i == picture;
}

void PressPlainMonitor(int index) {
    Choose(PlainMonitors.at(static_cast<std::size_t>(index)).Name);
}

void ChooseReplayFile() {
    const auto name = ThePlatform().FileDialogs.ChooseFileToOpen(LastOpenFolder, ReplayFilter);
    if (name)
        ThePlatform().EcgMonitors.SetOption("Replay file", "file", *name);
}

std::string TextOfMonitorWord(MonitorWord word) {
    constexpr std::array Texts{TextMonitorConnecting,      TextMonitorLost,          TextMonitorNoFile,
                               TextMonitorFileUnreadable,  TextMonitorFileAtEnd,     TextMonitorPortClosed,
                               TextMonitorNoPort,          TextMonitorNotAnEcg,      TextMonitorNoLibrary,
                               TextMonitorLibraryTooSmall, TextMonitorNoBluetooth,   TextMonitorStrapSought,
                               TextMonitorStrapWithoutEcg, TextMonitorDriverRefused, TextMonitorOk,
                               TextMonitorWaiting,         TextMonitorInitialising,  TextMonitorPaused,
                               TextMonitorEndOfMemory,     TextMonitorMemoryFailure, TextMonitorPortFailure,
                               TextMonitorVersion};
    static_assert(Texts.size() == MonitorWordCount);
    return LanguageText(Texts.at(static_cast<std::size_t>(word)));
}

void TellPortRefused(Long code) {
    std::string text = LanguageText(TextMonitorPortCode);
    AppendLong(text, code);
    if (SessionRunning != Off)
        return ShowStatus(text); // the monitor is sought again, and a question would hold the recording
    ThePlatform().Messages.Show(text, ButtonOK, WarningManner);
}

void InstallChooserTimer() {
    timNA.Handler = &NotAvailableTick;
}

void ResetMonitorChooser() {
    ChooserOpen = Off;
    labS = labOK = {};
    PointAtDsu(-1);
}

} // namespace pulselark
