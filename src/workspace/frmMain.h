#pragma once

#include "platform/qt/QtTimers.h"

#include <QWidget>

#include <functional>

class QAction;
class QMenu;

namespace pulselark {

class AnalysisPanels;
class StatusLine;
class TopBar;
class WindowPlatform;
class frmViewMenu;

/// The main window: top bar, modules, status line. It decides nothing: every event goes to the core, and what
/// the core has set is mirrored afterwards.
class frmMain final : public QWidget {
    Q_OBJECT

public:
    explicit frmMain(WindowPlatform& platform);
    ~frmMain() override;

    /// Shows what the core has set, and lets its timers run as it wants them.
    void Mirror();
    /// Takes over the scheme and the sizes of the window.
    void ApplyLook();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Runs one event of the user through the core and shows the outcome.
    template <class Routine>
    void Do(Routine routine) {
        routine();
        Mirror();
    }
    void BuildMenus();
    void ConnectTransport();
    void LayOut();

    WindowPlatform& platform_;
    QtTimers timers_;
    TopBar* topBar_;
    StatusLine* statusLine_;
    AnalysisPanels* panels_;
    QMenu* fileMenu_ = nullptr;
    frmViewMenu* viewMenu_ = nullptr;
    QAction* openAction_ = nullptr;
    QAction* saveAction_ = nullptr;
    short channelBLaidOut_ = 0;
};

} // namespace pulselark
