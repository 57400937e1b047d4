#include "workspace/frmMain.h"

#include "analysis/InputCD.h"
#include "analysis/PanelDrawing.h"
#include "persistence/DropSession.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveSession.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/Seek.h"
#include "workspace/DefaultPlaces.h"
#include "workspace/Look.h"
#include "workspace/ModuleFrame.h"
#include "workspace/NumbersView.h"
#include "workspace/PanelView.h"
#include "workspace/SeekCursors.h"
#include "workspace/StatusLine.h"
#include "workspace/TopBar.h"
#include "workspace/TransportButton.h"
#include "workspace/WindowPlatform.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>

namespace pulselark {

namespace {

QString Text(int item) {
    return QString::fromStdString(LanguageText(item));
}

// The one session file among what is dragged over the window, or nothing.
QString DraggedSession(const QMimeData* data) {
    const auto urls = data->urls();
    const bool one = urls.size() == 1 && urls.constFirst().isLocalFile();
    const QString name = one ? urls.constFirst().toLocalFile() : QString();
    return name.endsWith(".hti", Qt::CaseInsensitive) ? name : QString();
}

} // namespace

frmMain::frmMain(WindowPlatform& platform)
    : platform_(platform), timers_([this] { Mirror(); }), topBar_(new TopBar(this)),
      statusLine_(new StatusLine(this)) {
    setObjectName("frmMain");
    setWindowTitle("PulseLark 5 QS");
    setMinimumSize(640, 420);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setFont(TextFont(13));
    BuildModules();
    BuildMenus();
    ConnectTransport();
    platform_.SetOwner(this);
    platform_.BeforeWaiting = [this] { Mirror(); };
    ApplyLook();
}

frmMain::~frmMain() {
    platform_.BeforeWaiting = nullptr;
    platform_.SetOwner(nullptr);
    ResetPanelSurfaces();
}

void frmMain::BuildModules() {
    struct Kind {
        Icon Picture;
        int Title;
        Module Numbers;
    };
    constexpr std::array<Kind, 5> Kinds{{{Icon::EcgInput, TextModuleEcgInput, Module::EcgInput},
                                         {Icon::Spectrum, TextModuleSpectrum, Module::Spectrum},
                                         {Icon::Coherence, TextModuleCoherence, Module::Coherence},
                                         {Icon::History, TextModuleHistory, Module::History},
                                         {Icon::Hrv, TextModuleHrv, Module::Hrv}}};
    for (std::size_t i = 0; i < Kinds.size(); ++i) {
        modules_[i] = new ModuleFrame(static_cast<int>(i), Kinds[i].Picture, Text(Kinds[i].Title), this);
        if (Kinds[i].Numbers != Module::EcgInput)
            numbers_.push_back(new NumbersView(Kinds[i].Numbers, modules_[i]));
    }
    ecgA_ = new PanelView("picIA", true, modules_[0]);
    ecgB_ = new PanelView("picIB", true, modules_[0]);
    ecgA_->setAccessibleName(Text(TextEcgA));
    ecgB_->setAccessibleName(Text(TextEcgB));
    modules_[0]->SetPanels(ecgA_, ecgB_);
    picIA = &ecgA_->Surface();
    picIAP = &ecgA_->Twin();
    picIB = &ecgB_->Surface();
    picIBP = &ecgB_->Twin();
    for (PanelView* panel : {ecgA_, ecgB_}) {
        panel->setToolTip(Text(TextSeekTip));
        ConnectEcgPanel(panel);
    }
}

void frmMain::ConnectEcgPanel(PanelView* panel) {
    connect(panel, &PanelView::Moved, this, [this, panel](int button, double x, double y) {
        Do([&] { SeekByEcgPanel(button, x, y, panel->width(), panel->height()); });
        ShowSeekCursor();
    });
    connect(panel, &PanelView::Pressed, this, [this, panel](double x, double y) {
        Do([&] {
            PressEcgPanel();
            SeekByEcgPanel(0, x, y, panel->width(), panel->height());
        });
    });
    connect(panel, &PanelView::Released, this, [this] { Do([] { ReleaseEcgPanel(); }); });
}

void frmMain::ShowSeekCursor() {
    if (SessionRunning != Off || EcgViewState.SeekRow == seekRowShown_)
        return;
    seekRowShown_ = EcgViewState.SeekRow;
    for (PanelView* panel : {ecgA_, ecgB_})
        panel->setCursor(SeekCursor(seekRowShown_));
}

void frmMain::BuildMenus() {
    fileMenu_ = topBar_->Menus()->addMenu(Text(TextMenuFile));
    fileMenu_->setObjectName("frmFileMenu");
    fileMenu_->setAttribute(Qt::WA_TranslucentBackground);
    openAction_ = fileMenu_->addAction(Text(TextMenuOpenSession));
    openAction_->setObjectName("labOpenSession");
    openAction_->setShortcut(QKeySequence::Open);
    saveAction_ = fileMenu_->addAction(Text(TextMenuSaveSession));
    saveAction_->setObjectName("labSaveSession");
    saveAction_->setShortcut(QKeySequence::Save);
    fileMenu_->addSeparator();
    QAction* exit = fileMenu_->addAction(Text(TextMenuExit));
    exit->setObjectName("labExit");
    exit->setShortcut(QKeySequence("Ctrl+Q"));
    connect(openAction_, &QAction::triggered, this, [this] { Do([] { OpenSessionFromMenu(); }); });
    connect(saveAction_, &QAction::triggered, this, [this] { Do([] { SaveSession(); }); });
    connect(exit, &QAction::triggered, this, &QWidget::close);
    // Shortcuts of a menu work only while their actions belong to the window.
    addActions(fileMenu_->actions());
}

void frmMain::ConnectTransport() {
    connect(topBar_->ReplayButton(), &TransportButton::ReleasedWith, this, [this](int button) {
        Do([button] { ReleaseReplayButton(button == LeftButton ? LeftButton : RightButton); });
    });
    connect(topBar_->StopButton(), &TransportButton::ReleasedWith, this,
            [this](int) { Do([] { ReleaseStopButton(); }); });
}

void frmMain::Mirror() {
    if (channelBLaidOut_ != ChannelBPresent)
        LayOut();
    topBar_->Mirror();
    statusLine_->Mirror();
    for (NumbersView* numbers : numbers_)
        numbers->Mirror();
    openAction_->setEnabled(!SessionBusy());
    saveAction_->setEnabled(!SessionBusy() && SessionSeconds > 0);
    timers_.Sync();
}

void frmMain::ApplyLook() {
    const SchemeLook& look = CurrentLook();
    fileMenu_->setFont(TextFont(13));
    fileMenu_->setStyleSheet(
        QString("QMenu { background: %1; color: %2; border: 1px solid %4; border-radius: 8px; padding: 4px; }"
                "QMenu::item { padding: 8px 24px 8px 24px; border-radius: 4px; min-width: 180px; }"
                "QMenu::item:selected { background: %3; }"
                "QMenu::item:disabled { color: rgba(255, 255, 255, 97); }"
                "QMenu::separator { height: 1px; background: %4; margin: 4px 8px; }")
            .arg(look.Bar.name(), look.BarText.name(), look.RaisedHover.name(), look.RaisedPressed.name()));
    LayOut();
    update();
}

void frmMain::LayOut() {
    const Density& density = DensityFor(width(), height());
    topBar_->setGeometry(0, 0, width(), density.TopBar);
    topBar_->ApplyLook();
    statusLine_->setGeometry(0, height() - density.StatusLine, width(), density.StatusLine);
    const QRect desk(0, density.TopBar, width(), height() - density.TopBar - density.StatusLine);
    const int gap = density.Gap;
    const auto places = DefaultPlaces(desk.adjusted(gap, gap, -gap, -gap), gap);
    for (std::size_t i = 0; i < modules_.size(); ++i) {
        modules_[i]->setGeometry(places[i]);
        modules_[i]->LayOut(density.TitleBar, ChannelBPresent != Off);
    }
    for (NumbersView* numbers : numbers_)
        numbers->setGeometry(static_cast<ModuleFrame*>(numbers->parentWidget())->Body());
    channelBLaidOut_ = ChannelBPresent;
    OpenAllPanels(true);
}

void frmMain::resizeEvent(QResizeEvent* /*event*/) {
    LayOut();
}

void frmMain::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), CurrentLook().Desk);
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    constexpr Long PageStep = 30;
    constexpr Long FastStep = 5;
    const bool fast = (event->modifiers() & Qt::ShiftModifier) != 0;
    const Long step = fast ? FastStep : 1;
    switch (event->key()) {
    case Qt::Key_Space:
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
    if (SessionBusy() || !MayDropSession(TextSaveBeforeExit)) {
        event->ignore();
        Mirror();
        return;
    }
    timReplay.Enabled = false;
    timers_.Sync();
    event->accept();
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
