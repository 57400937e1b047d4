#include "workspace/frmMain.h"

#include "analysis/GameChart.h"
#include "feedback/FeedbackModes.h"
#include "feedback/ModeSelector.h"
#include "images/BackgroundPicture.h"
#include "persistence/OpenSession.h"
#include "quickscan/QuickScan.h"
#include "session/Controls.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/MonitorChoice.h"
#include "session/RecordButton.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/Seek.h"
#include "session/SessionButtons.h"
#include "session/Settings.h"
#include "session/ShutDown.h"
#include "session/StartUp.h"
#include "workspace/AnalysisPanels.h"
#include "workspace/Look.h"
#include "workspace/MainMenus.h"
#include "workspace/ModuleDesk.h"
#include "workspace/ModuleFrame.h"
#include "workspace/ScanPanel.h"
#include "workspace/StatusLine.h"
#include "workspace/Texts.h"
#include "workspace/ToolkitLanguage.h"
#include "workspace/TopBar.h"
#include "workspace/TrainingView.h"
#include "workspace/TransportButton.h"
#include "workspace/WindowButtons.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmAbout_new.h"
#include "workspace/frmDiagnostics.h"
#include "workspace/frmGames.h"
#include "workspace/frmLanguage.h"
#include "workspace/frmODS.h"
#include "workspace/frmReport.h"
#include "workspace/frmSelectDSU.h"
#include "workspace/frmSettings.h"
#include "workspace/frmUserGuide.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>

#include <utility>

namespace pulselark {

namespace {

// The one session file among what is dragged over the window, or nothing.
QString DraggedSession(const QMimeData* data) {
    const auto urls = data->urls();
    const bool one = urls.size() == 1 && urls.constFirst().isLocalFile();
    const QString name = one ? urls.constFirst().toLocalFile() : QString();
    return name.endsWith(".hti", Qt::CaseInsensitive) ? name : QString();
}

// Makes a form at its first use and brings it to the front.
template <class Form, class... Arguments>
void ShowForm(QPointer<Form>& form, Arguments... arguments) {
    if (form == nullptr)
        form = new Form(arguments...);
    form->show();
    form->raise();
    form->activateWindow();
}

} // namespace

frmMain::frmMain(WindowPlatform& platform, const QString& version)
    : platform_(platform), timers_(SessionTimers(), [this] { Mirror(); }), topBar_(new TopBar(this)),
      buttons_(new WindowButtons(this, [this](const std::function<void()>& routine) { Do(routine); })),
      statusLine_(new StatusLine(this)), loading_(new QLabel(this)),
      desk_(new ModuleDesk(this, [this](const std::function<void()>& routine) { Do(routine); })),
      panels_(new AnalysisPanels(*desk_, [this](const std::function<void()>& routine) { Do(routine); })),
      scan_(new ScanPanel(*desk_, [this](const std::function<void()>& routine) { Do(routine); })),
      training_(new TrainingView(this, [this](const std::function<void()>& routine) { Do(routine); })) {
    setObjectName("frmMain");
    version_ = version;
    setWindowTitle(ProgramTitle);
    setAccessibleName(ProgramTitle);
    setMinimumSize(800, 600);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setFocus(); // else a button would have the space bar as soon as the window is activated
    setFont(TextFont(13));
    loading_->setObjectName("labLoading");
    loading_->setAlignment(Qt::AlignCenter);
    loading_->setFont(TextFont(20, 500));
    loading_->hide();
    desk_->Snapshot = [this](int index) {
        ShowSnapshot(desk_->Frame(static_cast<std::size_t>(index))->grab(), Text(TextModuleEcgInput + index));
    };
    BuildMenus();
    ConnectTransport();
    openTimer_.setSingleShot(true);
    connect(&openTimer_, &QTimer::timeout, this, [this] {
        const std::string file = std::exchange(fileToOpen_, {});
        if (!file.empty())
            Do([&file] { OpenNamedSessionFromMenu(file); });
    });
    platform_.SetOwner(this);
    platform_.BeforeWaiting = [this] { Mirror(); };
    ApplyLook();
}

frmMain::~frmMain() {
    platform_.BeforeWaiting = nullptr;
    platform_.SetOwner(nullptr);
}

void frmMain::BuildMenus() {
    MenuRoutines routines;
    routines.Run = [this](const std::function<void()>& routine) { Do(routine); };
    routines.LookChanged = [this] { ApplyLook(); };
    routines.Exit = [this] { close(); };
    routines.Settings = [this] { ShowSettings(); };
    routines.LanguageEditor = [this] { ShowForm(language_, this, [this] { ApplyLanguage(); }); };
    routines.MonitorChooser = [this] {
        Do(&OpenMonitorChooser);
        if (chooser_ != nullptr)
            chooser_->raise();
    };
    routines.Document = [this] {
        ShowForm(report_, this, [this](const std::function<void()>& routine) { Do(routine); });
    };
    routines.Diagnostics = [this] { ShowForm(diagnostics_, this); };
    routines.Snapshot = [this] { ShowSnapshot(grab(), ProgramTitle); };
    routines.UserGuide = [this] { ShowForm(guide_, this, GuideFolder()); };
    routines.About = [this] {
        if (about_ == nullptr)
            about_ = new frmAbout_new(this, version_);
        about_->ShowFromMenu();
    };
    menus_ = new MainMenus(topBar_->Menus(), this, std::move(routines));
}

void frmMain::ShowSnapshot(const QPixmap& picture, const QString& name) {
    if (pictures_ == nullptr)
        pictures_ = new frmODS(this);
    pictures_->ShowPicture(picture, name);
}

void frmMain::ShowSettings() {
    ShowForm(settings_, this,
             SettingsCallbacks{[this] { Mirror(); }, [this] { ApplyLook(); }, [this] { ApplyLanguage(); }});
}

// The core opens and closes the chooser.
void frmMain::MirrorChooser() {
    const bool shown = chooser_ != nullptr && chooser_->isVisible();
    if (ChooserOpen != Off && !shown)
        ShowForm(chooser_, this, [this](const std::function<void()>& routine) { Do(routine); });
    if (chooser_ != nullptr)
        chooser_->Mirror();
}

void frmMain::ApplyLanguage() {
    UseToolkitLanguage();
    menus_->Retranslate();
    topBar_->Retranslate();
    buttons_->Retranslate();
    desk_->Retranslate();
    panels_->Retranslate();
    scan_->Retranslate();
    SetModeTips();
    training_->Retranslate();
    ShowScanCaption();
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    if (settings_ != nullptr)
        settings_->Retranslate();
    if (diagnostics_ != nullptr)
        diagnostics_->Retranslate();
    if (language_ != nullptr)
        language_->Retranslate();
    if (guide_ != nullptr)
        guide_->Retranslate();
    if (about_ != nullptr)
        about_->Retranslate();
    ShowReportFileName();
    if (report_ != nullptr)
        report_->Retranslate();
    if (pictures_ != nullptr)
        pictures_->Retranslate();
    if (ChooserOpen != Off)
        OpenMonitorChooser(); // its words anew
    if (chooser_ != nullptr)
        chooser_->Retranslate();
    if (games_ != nullptr)
        games_->Retranslate();
    ApplyLook();
    Mirror();
}

void frmMain::OpenWhenStarted(const std::string& file) {
    fileToOpen_ = file;
}

// The session named at the start waits until the panels stand.
void frmMain::OpenWaitingFile() {
    const bool started =
        StartingUp == Off && !timShowModules.Enabled && !timPrintFirst.Enabled && !timStartUp.Enabled;
    if (!started || fileToOpen_.empty())
        return;
    openTimer_.start(0);
}

void frmMain::ConnectTransport() {
    topBar_->QsClicked = [this](int entry) { Do([entry] { QsButtonClick(entry); }); };
    topBar_->QsPointed = [this](int entry, QsPointer pointer) { Do([=] { QsButtonHover(entry, pointer); }); };
    const auto connectHover = [this](TransportButton* button, PictureButton& picture) {
        connect(button, &TransportButton::Hovered, this,
                [this, &picture](bool over) { Do([&] { HoverSessionButton(picture, over); }); });
    };
    TransportButton* record = topBar_->RecordButton();
    record->SetKeyButton(LeftButton);
    connect(record, &TransportButton::Hovered, this,
            [this](bool over) { Do([over] { HoverRecordButton(over); }); });
    connect(record, &TransportButton::ReleasedWith, this, [this](int button) {
        Do([button] { ReleaseRecordButton(button == LeftButton ? LeftButton : RightButton); });
    });
    TransportButton* replay = topBar_->ReplayButton();
    TransportButton* stop = topBar_->StopButton();
    connectHover(replay, picReplay);
    connectHover(stop, picStop);
    connect(replay, &TransportButton::ReleasedWith, this, [this](int button) {
        Do([button] { ReleaseReplayButton(button == LeftButton ? LeftButton : RightButton); });
    });
    connect(stop, &TransportButton::PressedDown, this, [this] { Do(&PressStopButton); });
    connect(stop, &TransportButton::ReleasedWith, this, [this] { Do(&ReleaseStopButton); });
}

void frmMain::Mirror() {
    buttons_->Mirror();
    PlaceModules(false);
    desk_->Mirror();
    topBar_->Mirror();
    statusLine_->Mirror();
    panels_->Mirror();
    scan_->Mirror();
    training_->Mirror();
    menus_->Mirror();
    if (diagnostics_ != nullptr)
        diagnostics_->Mirror();
    if (settings_ != nullptr && settings_->isVisible())
        settings_->ShowMarks();
    if (report_ != nullptr && report_->isVisible())
        report_->Mirror();
    MirrorChooser();
    MirrorGames();
    loading_->setText(QString::fromStdString(labLoading.Caption));
    loading_->setVisible(labLoading.Visible);
    timers_.Sync();
    OpenWaitingFile();
}

void frmMain::MirrorGames() {
    const bool shown = games_ != nullptr && games_->isVisible();
    if (GamesOpen != Off && !shown)
        ShowForm(games_, this, [this](const std::function<void()>& routine) { Do(routine); });
    if (games_ == nullptr)
        return;
    if (GamesOpen == Off && shown)
        games_->hide();
    games_->Mirror();
}

void frmMain::ApplyLook() {
    loading_->setStyleSheet(QString("color: %1;").arg(CurrentLook().BarText.name()));
    LayOut();
    update();
}

void frmMain::LayOut() {
    if (!sized_)
        return; // the panels would be fitted to a window that nobody sees
    const Density& density = DensityFor(width(), height());
    topBar_->setGeometry(0, 0, width() - WindowButtons::Width, density.TopBar);
    topBar_->ApplyLook();
    statusLine_->setGeometry(0, height() - density.StatusLine, width(), density.StatusLine);
    loading_->setGeometry(0, height() / 2 - 20, width(), 40);
    desk_->MeasureWindow(geometry());
    buttons_->LayOut();
    PlaceModules(true);
    training_->LayOut();
}

void frmMain::PlaceModules(bool redraw) {
    if (!desk_->LayOut() && !redraw)
        return;
    panels_->LayOut();
    OpenAllPanels(true);
}

void frmMain::resizeEvent(QResizeEvent* /*event*/) {
    sized_ = true;
    LayOut();
}

void frmMain::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintBackground(painter, size(), {CurrentLook().Desk, ShowBackground != Off});
}

void frmMain::CancelDrag() {
    panelChosen_ = false;
    if (!panels_->CancelDrag())
        Do([] { CancelPanelDrag(); });
}

// While a panel is chosen by F6, the arrows move it, and with Shift size it, by one step of the grid.
bool frmMain::MoveChosenPanel(const QKeyEvent& event) {
    constexpr double Step = 150;
    if (!panelChosen_ || ActivePanel < 0)
        return false;
    const double dx = event.key() == Qt::Key_Left ? -Step : event.key() == Qt::Key_Right ? Step : 0;
    const double dy = event.key() == Qt::Key_Up ? -Step : event.key() == Qt::Key_Down ? Step : 0;
    if (dx == 0 && dy == 0)
        return false;
    const bool sizes = (event.modifiers() & Qt::ShiftModifier) != 0;
    Do([=] { sizes ? SizePanelBy(ActivePanel, dx, dy) : MovePanelBy(ActivePanel, dx, dy); });
    return true;
}

// The menu key opens the menu of the panel that the keyboard has.
void frmMain::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard || !panelChosen_ || ActivePanel < 0)
        return;
    const QWidget* frame = desk_->Frame(static_cast<std::size_t>(ActivePanel));
    desk_->ShowPlaceMenu(ActivePanel, frame->mapToGlobal(QPoint(8, 32)));
}

void frmMain::mousePressEvent(QMouseEvent* event) {
    panelChosen_ = false; // the keyboard has lost its panel
    QWidget::mousePressEvent(event);
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (MoveChosenPanel(*event))
        return;
    constexpr Long PageStep = 30;
    constexpr Long FastStep = 5;
    const bool fast = (event->modifiers() & Qt::ShiftModifier) != 0;
    const Long step = fast ? FastStep : 1;
    const int level = event->key() - Qt::Key_1;
    if (TrainingActive != Off && level >= 0 && level < ModeCount && !event->isAutoRepeat()) {
        Do([level] { ClickModeButton(level, LeftButton); });
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape:
        CancelDrag();
        break;
    case Qt::Key_R:
        if (event->modifiers() == Qt::ControlModifier && !event->isAutoRepeat())
            Do([] { ReleaseRecordButton(LeftButton); });
        break;
    case Qt::Key_F6:
        Do([fast] { ChooseNextPanel(fast ? -1 : 1); });
        panelChosen_ = ActivePanel >= 0;
        break;
    case Qt::Key_Space:
        if (event->isAutoRepeat())
            break; // a key held down is one press
        Do([] { ReleaseReplayButton(RightButton); });
        break;
    case Qt::Key_Left:
        Do([step] { SeekToSecond(SessionTick - step); });
        break;
    case Qt::Key_Right:
        Do([step] { SeekToSecond(SessionTick + step); });
        break;
    case Qt::Key_PageUp:
    case Qt::Key_Up:
        Do([] { SeekToSecond(SessionTick - PageStep); });
        break;
    case Qt::Key_PageDown:
    case Qt::Key_Down:
        Do([] { SeekToSecond(SessionTick + PageStep); });
        break;
    case Qt::Key_Home:
        Do([] { SeekToSecond(1); });
        break;
    case Qt::Key_End:
        Do([] { SeekToSecond(SessionSeconds); });
        break;
    default:
        QWidget::keyPressEvent(event);
        break;
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!ExitProgram()) {
        event->ignore();
        Mirror();
        return;
    }
    timers_.Sync();
    event->accept();
    QCoreApplication::quit(); // the side windows go with the main one
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedSession(event->mimeData()).isEmpty() && !SessionBusy())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString name = DraggedSession(event->mimeData());
    event->acceptProposedAction();
    Do([&name] { OpenNamedSessionFromMenu(name.toStdString()); });
}

} // namespace pulselark
