#include "workspace/MainMenus.h"

#include "feedback/PartnerTools.h"
#include "persistence/Configuration.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveScan.h"
#include "persistence/SaveScanPage.h"
#include "persistence/SaveSession.h"
#include "platform/Platform.h"
#include "platform/system/ProcessPriority.h"
#include "quickscan/QsPrint.h"
#include "session/MainBuffers.h"
#include "session/Training.h"
#include "workspace/Texts.h"
#include "workspace/frmViewMenu.h"

#include <QActionGroup>
#include <QMenuBar>

#include <array>
#include <utility>

namespace pulselark {

MainMenus::MainMenus(QMenuBar* bar, QWidget* window, MenuRoutines routines)
    : QObject(window), window_(window), routines_(std::move(routines)), file_(bar->addMenu(QString())),
      view_(new frmViewMenu(window, routines_.LookChanged, routines_.Run)), tools_(nullptr), help_(nullptr) {
    file_->setObjectName("frmFileMenu");
    bar->addMenu(view_);
    tools_ = bar->addMenu(QString());
    tools_->setObjectName("frmToolsMenu");
    help_ = bar->addMenu(QString());
    help_->setObjectName("frmHelpMenu");
    BuildFileMenu();
    BuildToolsMenu();
    BuildHelpMenu();
    auto* toBar = new QAction(window_);
    toBar->setShortcut(QKeySequence("F10"));
    connect(toBar, &QAction::triggered, this, [this, bar] {
        bar->setFocus(Qt::MenuBarFocusReason);
        bar->setActiveAction(file_->menuAction());
    });
    window_->addAction(toBar);
    // Shortcuts of a menu work only while their actions belong to the window.
    for (const QMenu* menu : {file_, tools_, help_})
        window_->addActions(menu->actions());
    Retranslate();
}

QAction* MainMenus::Add(QMenu* menu, int text, const char* name, std::function<void()> routine) {
    QAction* action = menu->addAction(QString());
    action->setObjectName(name);
    entries_.push_back({action, text});
    if (routine)
        connect(action, &QAction::triggered, this, [routine = std::move(routine)] { routine(); });
    return action;
}

QAction* MainMenus::AddCore(QMenu* menu, int text, const char* name, void (*routine)()) {
    return Add(menu, text, name, [this, routine] { routines_.Run(routine); });
}

void MainMenus::AddGreyed(QMenu* menu, int text, const char* name) {
    Add(menu, text, name, nullptr)->setEnabled(false);
}

void MainMenus::BuildFileMenu() {
    open_ = AddCore(file_, TextMenuOpenSession, "labOpenSession", &OpenSessionFromMenu);
    open_->setShortcut(QKeySequence::Open);
    save_ = AddCore(file_, TextMenuSaveSession, "labSaveSession", &SaveSessionFromMenu);
    save_->setShortcut(QKeySequence::Save);
    Add(file_, TextMenuSessionDocument, "labSessionDocument", routines_.Document)
        ->setShortcut(QKeySequence("Ctrl+D"));
    file_->addSeparator();
    export_ = AddCore(file_, TextMenuExportScan, "labExportScan", &ExportScan);
    print_ = AddCore(file_, TextMenuPrint, "labPrint", &QsPrint);
    print_->setShortcut(QKeySequence("Ctrl+Shift+P"));
    savePage_ = AddCore(file_, TextMenuSavePage, "labSavePage", &SaveScanPage);
    file_->addSeparator();
    AddCore(file_, TextMenuLoadConfig, "labLoadConfig", [] { LoadConfig(ChosenConfig); });
    AddCore(file_, TextMenuSaveConfig, "labSaveConfig", [] { SaveConfig(ChosenConfig); });
    training_ = AddCore(file_, TextMenuTraining, "labTraining",
                        [] { TrainingActive != Off ? LeaveTrainingToDefault() : EnterTraining(); });
    training_->setShortcut(QKeySequence("Ctrl+T"));
    file_->addSeparator();
    Add(file_, TextMenuExit, "labExit", routines_.Exit)->setShortcut(QKeySequence("Ctrl+Q"));
}

void MainMenus::BuildToolsMenu() {
    Add(tools_, TextSettings, "labSettings", routines_.Settings)->setShortcut(QKeySequence("Ctrl+,"));
    monitor_ = Add(tools_, TextActionSelectMonitor, "labSelectMonitor", routines_.MonitorChooser);
    Add(tools_, TextMenuLanguageEditor, "labLanguageEditor", routines_.LanguageEditor);
    Add(tools_, TextMenuSnapshot, "labSnapshot", routines_.Snapshot)->setShortcut(QKeySequence("Ctrl+P"));
    Add(tools_, TextDiagnostics, "labDiagnostics", routines_.Diagnostics)
        ->setShortcut(QKeySequence("Ctrl+Shift+D"));
    tools_->addSeparator();
    AddCore(tools_, TextMenuBreathingTool, "labBreathingTool", &StartBreathingTool);
    AddCore(tools_, TextMenuStoneGarden, "labStoneGarden", &StartStoneGarden);
    tools_->addSeparator();
    priorities_ = new QActionGroup(tools_);
    for (const bool high : {false, true}) {
        QAction* action = Add(tools_, high ? TextMenuPriorityHigh : TextMenuPriorityNormal,
                              high ? "labPriorityHigh" : "labPriorityNormal", nullptr);
        action->setCheckable(true);
        action->setChecked(!high);
        action->setActionGroup(priorities_);
        QAction* other = high ? priorities_->actions().constFirst() : nullptr;
        connect(action, &QAction::triggered, this, [this, high, other] {
            if (SetProcessPriority(high) == 0)
                return;
            if (other != nullptr)
                other->setChecked(true);
            routines_.Run([] {
                ThePlatform().Messages.Show(LanguageText(TextPriorityRefused), ButtonOK, WarningManner);
            });
        });
    }
}

void MainMenus::BuildHelpMenu() {
    Add(help_, TextMenuUserGuide, "labUserGuide", routines_.UserGuide)
        ->setShortcut(QKeySequence::HelpContents);
    Add(help_, TextMenuAbout, "labAbout", routines_.About);
}

void MainMenus::Mirror() {
    open_->setEnabled(!SessionBusy());
    save_->setEnabled(!SessionBusy() && SessionSeconds > 0);
    export_->setEnabled(!SessionBusy() && SessionSeconds > 0);
    for (QAction* page : {print_, savePage_})
        page->setEnabled(!SessionBusy() && QuickScanResultShown != Off);
    monitor_->setEnabled(SessionRunning == Off);
    training_->setEnabled(!SessionBusy());
    training_->setText(Text(TrainingActive != Off ? TextMenuLeaveTraining : TextMenuTraining));
}

// Each menu of the bar has a letter of its own, which opens it together with Alt: the first of its title that
// no menu before it has. A script without such letters puts that of the English title behind its own.
void MainMenus::TitleMenus() {
    QString taken;
    const auto giveLetter = [&taken](QString& title) {
        for (qsizetype i = 0; i < title.size(); ++i) {
            const QChar letter = title[i].toLower();
            if (!letter.isLetter() || letter.unicode() > 0x24F || taken.contains(letter))
                continue;
            taken += letter;
            title.insert(i, '&');
            return true;
        }
        return false;
    };
    const std::array<std::pair<QMenu*, int>, 4> menus{
        {{file_, TextMenuFile}, {view_, TextMenuView}, {tools_, TextMenuTools}, {help_, TextMenuHelp}}};
    for (const auto& [menu, text] : menus) {
        QString title = Text(text);
        menu->setAccessibleName(title);
        if (!giveLetter(title)) {
            QString english = QString::fromStdString(LanguageTable(0, text));
            if (giveLetter(english))
                title += "(" + english.mid(english.indexOf('&'), 2) + ")";
        }
        menu->setTitle(title);
    }
}

void MainMenus::Retranslate() {
    for (const Entry& entry : entries_) {
        const bool priority = entry.Text == TextMenuPriorityNormal || entry.Text == TextMenuPriorityHigh;
        entry.Action->setText(priority ? Text(TextMenuProcessPriority) + ": " + Text(entry.Text)
                                       : Text(entry.Text));
    }
    view_->Retranslate();
    TitleMenus();
}

} // namespace pulselark
