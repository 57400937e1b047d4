#include "workspace/WindowButtons.h"

#include "session/Controls.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSizeGrip>

#include <utility>

namespace pulselark {

namespace {

constexpr float Twips = 15;

QRect ToPixels(const PanelPlace& place) {
    return QRectF(place.Left / Twips, place.Top / Twips, place.Width / Twips, place.Height / Twips).toRect();
}

// The keys that do the same; of minimising and maximising the desktop has its own.
QKeySequence KeyOf(ControlButton which) {
    switch (which) {
    case ControlKeepPlaces:
        return QKeySequence("Ctrl+Shift+K");
    case ControlBackToPlaces:
        return QKeySequence("Ctrl+Shift+B");
    case ControlMinimise:
        return QKeySequence("Ctrl+M");
    case ControlMaximise:
        return QKeySequence("Alt+F10");
    case ControlClose:
        return QKeySequence("Ctrl+Q");
    }
    return {};
}

// The grip shows as two strokes on the status line.
class CanvasGrip final : public QSizeGrip {
public:
    using QSizeGrip::QSizeGrip;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(CurrentLook().BarText, 1.5, Qt::SolidLine, Qt::RoundCap));
        const double far = width() - 3.5;
        painter.drawLine(QPointF(far, far - 8), QPointF(far - 8, far));
        painter.drawLine(QPointF(far, far - 4), QPointF(far - 4, far));
    }
};

} // namespace

/// A button of the bar: a cell with an icon, lifted under the pointer.
class BarButton final : public QAbstractButton {
public:
    BarButton(Icon icon, QWidget* parent) : QAbstractButton(parent), icon_(icon) {
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }
    void SetIcon(Icon icon) {
        if (std::exchange(icon_, icon) != icon)
            update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const SchemeLook& look = CurrentLook();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double high = std::min(width(), height());
        const QRectF cell(0, (height() - high) / 2, width(), high);
        painter.setPen(Qt::NoPen);
        if (isEnabled() && (underMouse() || hasFocus())) {
            painter.setBrush(isDown() ? look.RaisedPressed : look.RaisedHover);
            painter.drawRoundedRect(cell, 4, 4);
        }
        if (hasFocus()) {
            painter.setPen(QPen(look.BarText, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(cell.adjusted(1, 1, -1, -1), 4, 4);
        }
        painter.setOpacity(isEnabled() ? 1 : 0.38);
        const double side = std::min(14.0, high - 6);
        PaintIcon(painter, icon_, QRectF((width() - side) / 2, (height() - side) / 2, side, side),
                  look.BarText);
    }

private:
    Icon icon_;
};

WindowButtons::WindowButtons(QWidget* window, std::function<void(const std::function<void()>&)> run)
    : QWidget(window), window_(window), run_(std::move(run)), grip_(new CanvasGrip(window)) {
    setObjectName("picCtrlAll");
    grip_->setObjectName("picCanvasGrip");
    constexpr std::array<Icon, ControlButtonCount> Icons{Icon::KeepPlaces, Icon::BackToPlaces, Icon::Minimise,
                                                         Icon::Enlarge, Icon::Close};
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i] = new BarButton(Icons[i], this);
        buttons_[i]->setObjectName(QString("picCtrl%1").arg(i));
    }
    Connect(ControlKeepPlaces, [this] { run_(&KeepPlaces); });
    Connect(ControlBackToPlaces, [this] { run_(&BackToPlaces); });
    Connect(ControlMinimise, [this] { window_->showMinimized(); });
    Connect(ControlMaximise, [this] {
        const bool large = window_->isMaximized() || window_->isFullScreen();
        large ? window_->showNormal() : window_->showMaximized();
    });
    Connect(ControlClose, [this] { window_->close(); });
    window_->installEventFilter(this);
    Retranslate();
}

void WindowButtons::Connect(ControlButton which, const std::function<void()>& routine) {
    connect(buttons_[which], &QAbstractButton::clicked, this, routine);
    if (which == ControlClose)
        return; // its key is the file menu's
    auto* key = new QAction(window_);
    key->setShortcut(KeyOf(which));
    connect(key, &QAction::triggered, this, [this, which] { buttons_[which]->click(); });
    window_->addAction(key);
}

void WindowButtons::Retranslate() {
    const bool large = window_->isMaximized() || window_->isFullScreen();
    const std::array<int, ControlButtonCount> texts{TextKeepPlaces, TextBackToPlaces, TextMinimise,
                                                    large ? TextFormerSize : TextMaximise, TextClose};
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const QString key = KeyOf(static_cast<ControlButton>(i)).toString(QKeySequence::NativeText);
        buttons_[i]->setAccessibleName(Text(texts[i]));
        buttons_[i]->setToolTip(QString("%1 (%2)").arg(Text(texts[i]), key));
    }
    buttons_[ControlMaximise]->SetIcon(large ? Icon::Restore : Icon::Enlarge);
    grip_->setAccessibleName(Text(TextSizePanel));
    grip_->setToolTip(Text(TextSizePanel));
}

void WindowButtons::LayOut() {
    const QRect bar = ToPixels(picCanvasTop);
    setGeometry(bar.right() + 1 - Width, bar.top(), Width, bar.height());
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        buttons_[i]->setGeometry(ToPixels(picCtrl[i]).translated(-pos()));
    grip_->setGeometry(ToPixels(picCanvasGrip));
    grip_->raise();
    update();
}

void WindowButtons::Mirror() {
    buttons_[ControlBackToPlaces]->setEnabled(LayoutMayChange() && PanelRects[CanvasRow][2] != 0);
    if (!std::exchange(WindowToMove, false))
        return;
    if (window_->isMaximized() || window_->isFullScreen())
        window_->showNormal();
    // Wherever it was remembered, it comes back to the screens that are there now.
    const QRect screen = window_->screen()->availableGeometry();
    QRect place = ToPixels(frmScale);
    place.setSize(place.size().boundedTo(screen.size()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    window_->setGeometry(place);
}

void WindowButtons::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), CurrentLook().Bar);
}

bool WindowButtons::eventFilter(QObject* object, QEvent* event) {
    if (object == window_ && event->type() == QEvent::WindowStateChange)
        Retranslate();
    if (object == window_ && event->type() == QEvent::Move) {
        frmCanvas.Left = static_cast<float>(window_->geometry().left()) * Twips;
        frmCanvas.Top = static_cast<float>(window_->geometry().top()) * Twips;
    }
    return QWidget::eventFilter(object, event);
}

} // namespace pulselark
