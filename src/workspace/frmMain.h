#pragma once

#include "platform/qt/QtTimers.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>

class QLabel;

namespace pulselark {

class AnalysisPanels;
class ModuleDesk;
class ScanPanel;
class StatusLine;
class TopBar;
class TrainingView;
class WindowButtons;
class WindowPlatform;
class MainMenus;
class frmAbout_new;
class frmDiagnostics;
class frmGames;
class frmLanguage;
class frmODS;
class frmReport;
class frmSelectDSU;
class frmSettings;
class frmUserGuide;

/// The main window: top bar, modules, status line. It decides nothing: every event goes to the core, and what
/// the core has set is mirrored afterwards.
class frmMain final : public QWidget {
    Q_OBJECT

public:
    /// `version` is what the about box says.
    explicit frmMain(WindowPlatform& platform, const QString& version = QString());
    ~frmMain() override;

    /// Shows what the core has set, and lets its timers run as it wants them.
    void Mirror();
    /// Opens a session once the stages of the start are through.
    void OpenWhenStarted(const std::string& file);
    /// All texts in the language in use, in every window.
    void ApplyLanguage();
    /// Takes over the scheme and the sizes of the window.
    void ApplyLook();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
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
    void ShowSettings();
    void MirrorChooser();
    void ShowSnapshot(const QPixmap& picture, const QString& name);
    void MirrorGames();
    void OpenWaitingFile();
    void PlaceModules(bool redraw);
    void CancelDrag();
    bool MoveChosenPanel(const QKeyEvent& event);

    WindowPlatform& platform_;
    QtTimers timers_;
    TopBar* topBar_;
    WindowButtons* buttons_;
    StatusLine* statusLine_;
    QLabel* loading_;
    ModuleDesk* desk_;
    AnalysisPanels* panels_;
    ScanPanel* scan_;
    TrainingView* training_;
    MainMenus* menus_ = nullptr;
    QPointer<frmSettings> settings_;
    QPointer<frmDiagnostics> diagnostics_;
    QPointer<frmLanguage> language_;
    QPointer<frmUserGuide> guide_;
    QPointer<frmODS> pictures_;
    QPointer<frmReport> report_;
    QPointer<frmSelectDSU> chooser_;
    QPointer<frmGames> games_;
    QPointer<frmAbout_new> about_;
    QString version_;
    std::string fileToOpen_;
    QTimer openTimer_;
    bool panelChosen_ = false;
    bool sized_ = false;
};

} // namespace pulselark
