#include "workspace/frmMain.h"

#include "persistence/DropSession.h"
#include "persistence/OpenSession.h"
#include "persistence/SaveSession.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RedrawPanels.h"
#include "session/Replay.h"
#include "session/Seek.h"
#include "session/SessionButtons.h"
#include "workspace/AnalysisPanels.h"
#include "workspace/Look.h"
#include "workspace/StatusLine.h"
#include "workspace/Texts.h"
#include "workspace/TopBar.h"
#include "workspace/TransportButton.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmViewMenu.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>

namespace pulselark {

namespace {

// The one session file among what is dragged over the window, or nothing.
QString DraggedSession(const QMimeData* data) {
    const auto urls = data->urls();
    const bool one = urls.size() == 1 && urls.constFirst().isLocalFile();
    const QString name = one ? urls.constFirst().toLocalFile() : QString();
    return name.endsWith(".hti", Qt::CaseInsensitive) ? name : QString();
}

struct ShadowKind {
    int Drop;
    int Blur;
    double Strength;
};
constexpr ShadowKind FlatShadow{2, 8, 0.22};
constexpr ShadowKind DeepShadow{8, 24, 0.36};

// Rings of black that fade out over the blur.
void PaintShadow(QPainter& painter, const QRect& place, const ShadowKind& kind) {
    painter.setPen(Qt::NoPen);
    const double ring = kind.Strength * 2 / kind.Blur;
    for (int reach = kind.Blur / 2; reach > -kind.Blur / 2; --reach) {
        painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(ring * 0.5)));
        const QRectF plate = QRectF(place).adjusted(-reach, -reach + kind.Drop, reach, reach + kind.Drop);
        painter.drawRoundedRect(plate, 8 + reach, 8 + reach);
    }
}

} // namespace

frmMain::frmMain(WindowPlatform& platform)
    : platform_(platform), timers_(SessionTimers(), [this] { Mirror(); }), topBar_(new TopBar(this)),
      statusLine_(new StatusLine(this)),
      panels_(new AnalysisPanels(this, [this](const std::function<void()>& routine) { Do(routine); })) {
    setObjectName("frmMain");
    setWindowTitle(ProgramTitle);
    setAccessibleName(ProgramTitle);
    setMinimumSize(800, 600);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setFont(TextFont(13));
    BuildMenus();
    ConnectTransport();
    platform_.SetOwner(this);
    platform_.BeforeWaiting = [this] { Mirror(); };
    ApplyLook();
}

frmMain::~frmMain() {
    platform_.BeforeWaiting = nullptr;
    platform_.SetOwner(nullptr);
}

void frmMain::BuildMenus() {
    fileMenu_ = topBar_->Menus()->addMenu(Text(TextMenuFile));
    fileMenu_->setObjectName("frmFileMenu");
    fileMenu_->setAccessibleName(Text(TextMenuFile));
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
    viewMenu_ = new frmViewMenu(
        this, [this] { ApplyLook(); }, [this] { Mirror(); });
    topBar_->Menus()->addMenu(viewMenu_);
    // Shortcuts of a menu work only while their actions belong to the window.
    addActions(fileMenu_->actions());
}

void frmMain::ConnectTransport() {
    const auto connectHover = [this](TransportButton* button, PictureButton& picture) {
        connect(button, &TransportButton::Hovered, this,
                [this, &picture](bool over) { Do([&] { HoverSessionButton(picture, over); }); });
    };
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
    if (channelBLaidOut_ != ChannelBPresent)
        LayOut();
    topBar_->Mirror();
    statusLine_->Mirror();
    panels_->Mirror();
    openAction_->setEnabled(!SessionBusy());
    saveAction_->setEnabled(!SessionBusy() && SessionSeconds > 0);
    timers_.Sync();
}

void frmMain::ApplyLook() {
    for (QMenu* menu : {fileMenu_, static_cast<QMenu*>(viewMenu_)}) {
        menu->setFont(TextFont(13));
        menu->setStyleSheet(MenuStyle());
    }
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
    panels_->LayOut(desk.adjusted(gap, gap, -gap, -gap), gap, density.TitleBar);
    channelBLaidOut_ = ChannelBPresent;
    OpenAllPanels(true);
}

void frmMain::resizeEvent(QResizeEvent* /*event*/) {
    LayOut();
}

void frmMain::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), CurrentLook().Desk);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [place, active] : panels_->Shadows())
        PaintShadow(painter, place, active ? DeepShadow : FlatShadow);
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    constexpr Long PageStep = 30;
    constexpr Long FastStep = 5;
    const bool fast = (event->modifiers() & Qt::ShiftModifier) != 0;
    const Long step = fast ? FastStep : 1;
    switch (event->key()) {
    case Qt::Key_Escape:
        panels_->CancelDrag();
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
    if (SessionBusy() || SeekBusy != Off || DialogOpen != Off || !MayDropSession(TextSaveBeforeExit)) {
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
