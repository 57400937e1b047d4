#include "scenery/SceneryWindow.h"

#include "scenery/OverlayColour.h"
#include "scenery/SceneryMenu.h"

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pulselark {

namespace {

constexpr double SceneryRate = 30; // pictures a second

// The desktop's wish for no motion, as its toolkits pass it on.
bool LessMotionWanted() {
    return qEnvironmentVariableIsSet("GTK_ENABLE_ANIMATIONS") &&
           qEnvironmentVariableIntValue("GTK_ENABLE_ANIMATIONS") == 0;
}

} // namespace

SceneryWindow::SceneryWindow() : PartnerWindow("WideFeedback"), menu_(new SceneryMenu(workshop_, this)) {
    setWindowFlag(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(40, 40);
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    constexpr QSize Usual(960, 540);
    resize(Usual.boundedTo(screen));
    move((screen.width() - width()) / 2, (screen.height() - height()) / 2);
    state_.SetReducedMotion(LessMotionWanted());
    view_ = {0, SceneryState::RestingLight};

    frames_.setTimerType(Qt::PreciseTimer);
    connect(&frames_, &QTimer::timeout, this, &SceneryWindow::NextFrame);
    settled_.setSingleShot(true);
    constexpr int LastChangeOfSize = 120;
    settled_.setInterval(LastChangeOfSize);
    connect(&settled_, &QTimer::timeout, this, &SceneryWindow::OrderScenery);
    connect(menu_, &SceneryMenu::Chosen, this, &SceneryWindow::Choose);
    connect(menu_, &SceneryMenu::FullScreenWanted, this, [this] { ToggleFullScreen(); });
    connect(menu_, &SceneryMenu::EndWanted, this, &QWidget::close);
    Choose(0);
}

void SceneryWindow::Present() {
    constexpr int LongestWait = 6000; // the place is told after 3.5 seconds
    if (qEnvironmentVariableIsSet("PULSELARK_STARTED"))
        AwaitPlace(LongestWait);
    else
        show();
}

void SceneryWindow::Choose(int scenery) {
    if (scenery < 0 || scenery >= static_cast<int>(SceneryKinds().size()))
        return;
    menu_->hide();
    chosen_ = scenery;
    setAccessibleDescription(SceneryKinds()[static_cast<std::size_t>(scenery)].Name);
    if (isVisible())
        OrderScenery();
    setFocus();
}

QSize SceneryWindow::DeviceSize() const {
    return (QSizeF(size()) * devicePixelRatioF()).toSize().expandedTo({1, 1});
}

bool SceneryWindow::Fits() const {
    return scenery_ != nullptr && scenery_->Size() == DeviceSize();
}

void SceneryWindow::OrderScenery() {
    const double now = Now();
    workshop_.Order(chosen_, DeviceSize(), state_.Light(now),
                    [this, order = ++ordered_](const auto& scenery) {
                        if (order != ordered_)
                            return;
                        scenery_ = scenery;
                        pacer_.Resize(scenery->Size(), OverlayColour(state_.Scheme()));
                        update();
                        Animate();
                    });
}

bool SceneryWindow::SceneryMoves(double now) const {
    return !state_.ScenerySettled(now) || (scenery_ != nullptr && scenery_->Relighting(state_.Light(now)));
}

void SceneryWindow::Take(const LinkMessage& message) {
    const bool paced = state_.PacerOn();
    const WindowAction action = state_.Take(message, Now());
    Do(action, state_.Place());
    if (std::exchange(scheme_, state_.Scheme()) != state_.Scheme() && scenery_ != nullptr) {
        pacer_.Resize(scenery_->Size(), OverlayColour(scheme_));
        update();
    }
    if (paced != state_.PacerOn())
        update();
    Animate();
}

void SceneryWindow::ShowMenu() {
    menu_->Open(chosen_, OverlayColour(state_.Scheme()));
}

QRect SceneryWindow::PacerRect() const {
    const double ratio = devicePixelRatioF();
    const QRectF area(pacer_.Area());
    return QRectF(area.topLeft() / ratio, area.size() / ratio).toAlignedRect();
}

// Starts or stops the pictures, as often as what moves needs them.
void SceneryWindow::Animate() {
    const double now = Now();
    if (!isVisible() || isMinimized() || (!SceneryMoves(now) && !state_.PacerOn())) {
        frames_.stop();
        return;
    }
    const double screenRate = std::clamp(screen()->refreshRate(), SceneryRate, 120.0);
    const int interval = static_cast<int>(std::floor(1000 / (state_.PacerOn() ? screenRate : SceneryRate)));
    if (!frames_.isActive() || frames_.interval() != interval)
        frames_.start(interval);
}

void SceneryWindow::NextFrame() {
    const double now = Now();
    constexpr double Early = 0.004; // a timer counts in milliseconds
    const bool due = now - drawn_ >= 1 / SceneryRate - Early;
    const SceneryView view{state_.SceneTime(now), state_.Light(now)};
    const bool moving = SceneryMoves(now);
    if (due && moving) {
        view_ = view;
        drawn_ = now;
        update();
    } else if (state_.PacerOn()) {
        update(PacerRect());
    }
    if (due)
        Animate();
}

// The scenery keeps the time of its last picture, so that a part of it that is drawn anew under the pacer
// fits to the rest.
void SceneryWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    painter.scale(1 / ratio, 1 / ratio);
    const QSize wanted = DeviceSize();
    if (scenery_ == nullptr) { // in the first moment
        constexpr QColor Sky(0x8B, 0xC2, 0xE2);
        painter.fillRect(QRect({0, 0}, wanted), Sky);
        return;
    }
    if (!Fits()) // while the size is being changed
        painter.scale(static_cast<double>(wanted.width()) / scenery_->Size().width(),
                      static_cast<double>(wanted.height()) / scenery_->Size().height());
    scenery_->Draw(painter, view_);
    if (state_.PacerOn())
        pacer_.Draw(painter, state_.BreathAt(Now()));
}

void SceneryWindow::resizeEvent(QResizeEvent* /*event*/) {
    menu_->Arrange();
    if (isVisible() && !Fits())
        settled_.start();
}

void SceneryWindow::showEvent(QShowEvent* /*event*/) {
    if (!Fits())
        OrderScenery();
    Animate();
}

void SceneryWindow::hideEvent(QHideEvent* /*event*/) {
    frames_.stop();
}

void SceneryWindow::keyPressEvent(QKeyEvent* event) {
    const int number = event->key() - Qt::Key_1;
    if (event->key() == Qt::Key_M || event->key() == Qt::Key_Return)
        ShowMenu();
    else if (number >= 0 && number < static_cast<int>(SceneryKinds().size()))
        Choose(number);
    else
        PartnerWindow::keyPressEvent(event);
}

void SceneryWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    menu_->hide();
    pressed_ = event->position();
    dragging_ = true;
}

// Without a frame it is moved by its picture, and its size is changed by its borders.
void SceneryWindow::mouseMoveEvent(QMouseEvent* event) {
    constexpr double Border = 12;
    const bool far = (event->position() - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (!dragging_ || !far || FillsScreen() || windowHandle() == nullptr ||
        !(event->buttons() & Qt::LeftButton))
        return;
    dragging_ = false;
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, pressed_.x() < Border);
    edges.setFlag(Qt::RightEdge, pressed_.x() >= width() - Border);
    edges.setFlag(Qt::TopEdge, pressed_.y() < Border);
    edges.setFlag(Qt::BottomEdge, pressed_.y() >= height() - Border);
    if (edges)
        windowHandle()->startSystemResize(edges);
    else
        windowHandle()->startSystemMove();
}

void SceneryWindow::contextMenuEvent(QContextMenuEvent* /*event*/) {
    if (menu_->isVisible())
        menu_->hide();
    else
        ShowMenu();
}

} // namespace pulselark
