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
/// Tabs and ends of line within a text are written as blanks. There is one trace at a time; it stands between
/// the core and the platform that was installed before it, and takes itself away again.
class EventTrace final : private Messages, private PartnerTransport, private ProgramLauncher {
public:
    using Sink = std::function<void(const std::string& line)>;
    explicit EventTrace(Sink sink);
    EventTrace(const EventTrace&) = delete;
    EventTrace& operator=(const EventTrace&) = delete;
    ~EventTrace() override;

    /// Writes the labels that have changed since the last line.
    void WriteChanges();

private:
    int Show(const std::string& text, int buttons) override;
    bool Send(const std::string& title, std::span<const unsigned char> payload) override;
    int Execute(const LaunchRequest& request) override;
    void Write(const std::string& kind, const std::string& text);
    void WriteLine(const std::string& kind, const std::string& text);

    Sink sink_;
    const Platform& before_;
    Platform own_;
    std::vector<std::string> shown_; // captions of the labels as written last
};

} // namespace pulselark
