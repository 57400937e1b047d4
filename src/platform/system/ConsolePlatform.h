#pragma once

#include "platform/Platform.h"
#include "platform/system/SystemClock.h"
#include "platform/system/SystemFiles.h"

namespace pulselark {

/// The platform of the command line: no window, no dialog, no progress, no printer, no other program. A
/// message is not shown, since the command that caused it tells of its failure itself; its answer is the most
/// careful button.
class ConsolePlatform final : public FileDialogs, public Messages, public MessageLoop, public Progress {
public:
    explicit ConsolePlatform(class MidiOutput& midiOutput = NoMidiOutput())
        : ConsolePlatform(nullptr, midiOutput, NoEcgMonitors()) {}

    /// With ECG monitors, and on another clock if there is one.
    ConsolePlatform(class Clock* clock, class EcgMonitors& monitors)
        : ConsolePlatform(clock, NoMidiOutput(), monitors) {}

    std::optional<std::string> ChooseFileToOpen(const std::string& /*start*/,
                                                const std::string& /*filter*/) override {
        return std::nullopt;
    }
    std::optional<std::string> ChooseFileToSave(const std::string& /*start*/,
                                                const std::string& /*filter*/) override {
        return std::nullopt;
    }
    int Show(const std::string& /*text*/, int buttons, const MessageManner& /*manner*/) override {
        return MostCarefulButton(buttons);
    }
    void Yield() override {}
    void Show(const std::string& /*caption*/) override {}
    void Draw(double /*percent*/) override {}
    void Hide() override {}

private:
    ConsolePlatform(class Clock* clock, class MidiOutput& midiOutput, class EcgMonitors& monitors)
        : platform_{.Clock = clock != nullptr ? *clock : clock_,
                    .Files = files_,
                    .FileDialogs = *this,
                    .Messages = *this,
                    .MessageLoop = *this,
                    .Progress = *this,
                    .PartnerTransport = partners_,
                    .ProgramLauncher = programs_,
                    .MidiOutput = midiOutput,
                    .EcgMonitors = monitors} {
        InstallPlatform(platform_);
    }

    SystemClock clock_;
    SystemFiles files_;
    NoPartners partners_;
    NoPrograms programs_;
    Platform platform_;
};

} // namespace pulselark
