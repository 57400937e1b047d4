#pragma once

#include "platform/Platform.h"

#include <functional>
#include <string>
#include <vector>

namespace pulselark {

/// Writes what a session does as lines: its second, a tab, the kind, a tab, the text. Kinds are
/// - `score`: score of the session, a blank, the index, at each second of the training
/// - `link`: a payload for a partner program, in hexadecimal figures, whether or not there is one
/// - `launch`: a program that is started
/// - `label NAME`: the new caption of a label, empty when it is hidden
/// - `status`: the new text of the status line
/// - `message`: a message that is shown
/// - `midi`: a word for the MIDI output, in eight hexadecimal figures; with a ready output only
/// Tabs and ends of line within a text are written as blanks. There is one trace at a time; it stands between
/// the core and the platform that was installed before it, and takes itself away again.
class EventTrace final : private Messages,
                         private PartnerTransport,
                         private ProgramLauncher,
                         private MidiOutput {
public:
    using Sink = std::function<void(const std::string& line)>;
    /// With `readyOutput` the words of the MIDI output are written in place of being sent, whatever the
    /// machine has; else they go to the output that was installed before, unwritten.
    explicit EventTrace(Sink sink, bool readyOutput = false);
    EventTrace(const EventTrace&) = delete;
    EventTrace& operator=(const EventTrace&) = delete;
    ~EventTrace() override;

    /// Writes the labels that have changed since the last line.
    void WriteChanges();

private:
    int Show(const std::string& text, int buttons, const MessageManner& manner) override;
    bool Send(const std::string& title, std::span<const unsigned char> payload) override;
    int Execute(const LaunchRequest& request) override;
    int DeviceCount() override { return 0; }
    std::optional<std::string> DeviceName(int /*id*/) override { return std::nullopt; }
    Integer Open(int /*id*/) override { return 0; }
    Integer Close() override { return 0; }
    Integer Send(std::uint32_t word) override;
    void Silence() override {}
    std::string ErrorText(Integer code) override { return FailureText(code); }
    void Write(const std::string& kind, const std::string& text);
    void WriteLine(const std::string& kind, const std::string& text);

    Sink sink_;
    const Platform& before_;
    Platform own_;
    std::vector<std::string> shown_; // captions of the labels as written last
};

} // namespace pulselark
