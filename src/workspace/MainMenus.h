#pragma once

#include <QMenu>
#include <QObject>

#include <array>
#include <functional>
#include <vector>

class QActionGroup;
class QMenuBar;

namespace pulselark {

class frmViewMenu;

/// What the menus' entries do that belongs to the window.
struct MenuRoutines {
    std::function<void(const std::function<void()>&)>
        Run; ///< takes a routine through the core and shows the outcome
    std::function<void()> LookChanged;
    std::function<void()> Exit;
    std::function<void()> Settings;
    std::function<void()> LanguageEditor;
    std::function<void()> MonitorChooser;
    std::function<void()> Document;
    std::function<void()> Snapshot;
    std::function<void()> Diagnostics;
    std::function<void()> UserGuide;
    std::function<void()> About;
};

/// The menus of the main window: `frmFileMenu`, `frmViewMenu`, `frmToolsMenu` and help. An entry whose
/// operation does not exist yet is there, greyed.
class MainMenus final : public QObject {
    Q_OBJECT

public:
    MainMenus(QMenuBar* bar, QWidget* window, MenuRoutines routines);

    /// Enables what can be done now.
    void Mirror();
    /// Sets all texts in the language in use.
    void Retranslate();

private:
    struct Entry {
        QAction* Action;
        int Text;
    };
    QAction* Add(QMenu* menu, int text, const char* name, std::function<void()> routine);
    /// A routine of the core.
    QAction* AddCore(QMenu* menu, int text, const char* name, void (*routine)());
    void AddGreyed(QMenu* menu, int text, const char* name);
    void BuildFileMenu();
    void BuildToolsMenu();
    void BuildHelpMenu();
    void TitleMenus();

    QWidget* window_;
    MenuRoutines routines_;
    QMenu* file_;
    frmViewMenu* view_;
    QMenu* tools_;
    QMenu* help_;
    std::vector<Entry> entries_;
    QActionGroup* priorities_ = nullptr;
    QAction* open_ = nullptr;
    QAction* save_ = nullptr;
    QAction* print_ = nullptr;
    QAction* export_ = nullptr;
    QAction* savePage_ = nullptr;
    QAction* training_ = nullptr;
    QAction* monitor_ = nullptr;
};

} // namespace pulselark
