#pragma once

#include "platform/link/PartnerListener.h"
#include "scenery/WindowOrders.h"

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace pulselark {

/// A window that listens to the link under its own title. F11 or a double click fill the screen, Escape
/// leaves it.
class PartnerWindow : public QWidget {
    Q_OBJECT

public:
    explicit PartnerWindow(const QString& title);

    /// Begins to listen. False when another window listens under this title; that one has then been asked to
    /// come forward.
    bool Listen();
    /// Shows the window for the first time.
    virtual void Present() { show(); }

protected:
    /// A message has come.
    virtual void Take(const LinkMessage& message) = 0;
    void Do(WindowAction action, const ScenePlace& place);
    /// Stays hidden until its place is told, or for these milliseconds.
    void AwaitPlace(int longest);
    virtual void ShowMenu() {}

    void ToggleFullScreen();
    bool FillsScreen() const;
    /// Stands in front of the other windows, or behind them, until told otherwise.
    void ComeForward();
    void StepBehind();

    /// Seconds of a steady clock.
    double Now() const { return static_cast<double>(clock_.nsecsElapsed()) / 1e9; }

    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// Closes the window, and with it the program.
    Q_INVOKABLE void End();
    void MoveTo(const ScenePlace& place);
    void LeaveFullScreen();
    void StayOnTop(bool on);

    QElapsedTimer clock_;
    PartnerListener listener_;
    std::unique_ptr<QSocketNotifier> arrived_;
    QTimer fill_, await_;
    bool awaitsPlace_ = false;
    bool wide_ = false;   ///< was told to fill the screen
    QRect usual_;         ///< place before the whole screen was filled
    bool placed_ = false; ///< over a panel of the main program, in front of which it has to stay
};

} // namespace pulselark
