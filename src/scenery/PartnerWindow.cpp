#include "scenery/PartnerWindow.h"

#include "platform/link/SocketTransport.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace pulselark {

PartnerWindow::PartnerWindow(const QString& title)
    : listener_(title.toStdString(), [this](LinkBytes payload) {
          LinkMessage message;
          if (UnpackLinkMessage(payload, message))
              Take(message);
      }) {
    clock_.start();
    // The window manager fills the screen; where there is none, nobody has done so after a while.
    constexpr int LongEnough = 300;
    fill_.setSingleShot(true);
    fill_.setInterval(LongEnough);
    connect(&fill_, &QTimer::timeout, this, [this] {
        if (wide_ && geometry() != screen()->geometry())
            setGeometry(screen()->geometry());
    });
    await_.setSingleShot(true);
    connect(&await_, &QTimer::timeout, this, [this] {
        if (std::exchange(awaitsPlace_, false))
            show();
    });
    setWindowTitle(title);
    setAccessibleName(title);
    setAttribute(Qt::WA_ShowWithoutActivating);
}

bool PartnerWindow::Listen() {
    const int failure = listener_.Open();
    if (failure == EADDRINUSE) {
        SocketTransport().Send(windowTitle().toStdString(), PackLinkCommand(CmdKeepScene, 0, 0, 0, 0));
        return false;
    }
    if (failure != 0) { // it can still be looked at
        std::fprintf(stderr, "%s: no messages can come: %s\n", qPrintable(windowTitle()),
                     std::strerror(failure));
        return true;
    }
    arrived_ = std::make_unique<QSocketNotifier>(listener_.Descriptor(), QSocketNotifier::Read);
    connect(arrived_.get(), &QSocketNotifier::activated, this, [this] { listener_.HandleArrived(); });
    return true;
}

void PartnerWindow::AwaitPlace(int longest) {
    awaitsPlace_ = true;
    await_.start(longest);
}

void PartnerWindow::End() {
    const bool shown = isVisible();
    close();
    if (!shown) // nobody else would end the program then
        QCoreApplication::quit();
}

void PartnerWindow::Do(WindowAction action, const ScenePlace& place) {
    switch (action) {
    case WindowAction::Nothing:
        break;
    case WindowAction::Close:
        // The message has to be answered before the program goes.
        QMetaObject::invokeMethod(this, "End", Qt::QueuedConnection);
        break;
    case WindowAction::ShowMenu:
        ComeForward();
        ShowMenu();
        break;
    case WindowAction::StepBehind:
        StepBehind();
        break;
    case WindowAction::TakePlace:
        placed_ = true;
        awaitsPlace_ = false;
        MoveTo(place);
        ComeForward();
        break;
    case WindowAction::ComeForward:
        if (!awaitsPlace_)
            ComeForward();
        break;
    }
}

void PartnerWindow::MoveTo(const ScenePlace& place) {
    LeaveFullScreen();
    setGeometry(place.Left, place.Top, place.Width, place.Height);
}

void PartnerWindow::StayOnTop(bool on) {
    if (windowHandle() != nullptr && windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint) != on)
        windowHandle()->setFlag(Qt::WindowStaysOnTopHint, on);
}

void PartnerWindow::ComeForward() {
    if (isMinimized())
        showNormal();
    show();
    StayOnTop(placed_);
    raise();
}

void PartnerWindow::StepBehind() {
    LeaveFullScreen();
    StayOnTop(false);
    lower();
}

bool PartnerWindow::FillsScreen() const {
    return isFullScreen() || (wide_ && geometry() == screen()->geometry());
}

void PartnerWindow::ToggleFullScreen() {
    if (FillsScreen()) {
        LeaveFullScreen();
        return;
    }
    usual_ = geometry();
    wide_ = true;
    showFullScreen();
    fill_.start();
}

void PartnerWindow::LeaveFullScreen() {
    if (!FillsScreen())
        return;
    wide_ = false;
    fill_.stop();
    showNormal();
    setGeometry(usual_);
}

void PartnerWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F11)
        ToggleFullScreen();
    else if (event->key() == Qt::Key_Escape && FillsScreen())
        LeaveFullScreen();
    else if (event->matches(QKeySequence::Quit) || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}

void PartnerWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        ToggleFullScreen();
}

} // namespace pulselark
