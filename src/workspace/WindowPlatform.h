#pragma once

#include "platform/Platform.h"
#include "platform/audio/MixerMediaControl.h"
#include "platform/link/SocketTransport.h"
#include "platform/midi/SystemMidiOutput.h"
#include "platform/monitors/SystemMonitors.h"
#include "platform/qt/QtPagePrinter.h"
#include "platform/system/SystemClock.h"
#include "platform/system/SystemFiles.h"
#include "platform/system/SystemLauncher.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace pulselark {

class frmProgressBar;

/// The platform of the window: dialogs, messages and progress are windows of their own over `frmMain`.
class WindowPlatform final : public FileDialogs, public Messages, public MessageLoop, public Progress {
public:
    WindowPlatform();

    /// The window that owns the others; before it is set, messages stand alone.
    void SetOwner(QWidget* owner);
    /// Nobody watches: no message and no progress is shown; a message gets its most careful answer.
    void SetUnattended() { unattended_ = true; }
    /// Called before the message loop runs or a window waits for the user, so that what the core has set is
    /// shown.
    std::function<void()> BeforeWaiting;

    std::optional<std::string> ChooseFileToOpen(const std::string& start, const std::string& filter) override;
    std::optional<std::string> ChooseFileToSave(const std::string& start, const std::string& filter) override;
    int Show(const std::string& text, int buttons, const MessageManner& manner) override;
    void Yield() override;
    void Show(const std::string& caption) override;
    void Draw(double percent) override;
    void Hide() override;

private:
    void CatchUp() const;

    SystemClock clock_;
    SystemFiles files_;
    SocketTransport partners_;
    SystemLauncher programs_;
    SystemMidiOutput midi_;
    MixerMediaControl music_;
    QtPagePrinter printer_;
    SystemMonitors monitors_;
    Platform platform_;
    bool unattended_ = false;
    QPointer<QWidget> owner_;
    QPointer<frmProgressBar> progress_;
};

} // namespace pulselark
