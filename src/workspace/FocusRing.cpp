#include "workspace/FocusRing.h"

#include "workspace/Look.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QTextBrowser>

namespace pulselark {

namespace {

constexpr int Reach = 4; // a line of 2 at a distance of 2
constexpr const char* RadiusProperty = "ringRadius";
constexpr const char* GroundProperty = "ringGround";

// The bars are dark in every scheme, so the dark ring of the light schemes would not be seen on them.
QColor RingColour(Ground ground) {
    const SchemeLook& look = CurrentLook();
    if (ground == Ground::Form)
        return FormColour::Focus;
    return ground == Ground::Bar && look.Focus.lightness() < 128 ? look.BarText : look.Focus;
}

} // namespace

void PaintFocusRing(QPainter& painter, const QRectF& control, double radius, Ground ground) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(RingColour(ground), 2));
    const double middle = Reach - 1;
    painter.drawRoundedRect(control.adjusted(-middle, -middle, middle, middle), radius + middle,
                            radius + middle);
}

FocusRing::FocusRing(QWidget* window) : QWidget(window) {
    setObjectName("FocusRing");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

FocusRing& FocusRing::Of(QWidget* window) {
    auto* ring = window->findChild<FocusRing*>();
    return ring != nullptr ? *ring : *new FocusRing(window);
}

void FocusRing::Watch(QWidget* control, int radius, Ground ground) {
    control->setProperty(RadiusProperty, radius);
    control->setProperty(GroundProperty, static_cast<int>(ground));
    control->installEventFilter(this);
}

void FocusRing::WatchSideWindow() {
    constexpr int ControlRadius = 6;
    constexpr int ListRadius = 8;
    for (QWidget* control : window()->findChildren<QWidget*>()) {
        const bool list =
            qobject_cast<QListView*>(control) != nullptr || qobject_cast<QTextBrowser*>(control) != nullptr;
        const bool field = qobject_cast<QPushButton*>(control) != nullptr ||
                           qobject_cast<QLineEdit*>(control) != nullptr ||
                           qobject_cast<QComboBox*>(control) != nullptr;
        if (list || field)
            Watch(control, list ? ListRadius : ControlRadius);
    }
}

// On a form the ring scrolls with the control; in the main window it may reach over the edge of a bar.
void FocusRing::PlaceAround(QWidget* control) {
    radius_ = control->property(RadiusProperty).toInt();
    ground_ = static_cast<Ground>(control->property(GroundProperty).toInt());
    QWidget* host = ground_ == Ground::Form ? control->parentWidget() : control->window();
    if (parentWidget() != host)
        setParent(host);
    const QPoint corner = control->mapTo(host, QPoint(0, 0));
    setGeometry(QRect(corner, control->size()).adjusted(-Reach, -Reach, Reach, Reach));
    raise();
    show();
    update();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (control == nullptr)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn: {
        if (!control->hasFocus())
            break; // a dialog that opens pretends so, to its first control
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
            reason == Qt::ShortcutFocusReason)
            keyboard_ = true;
        if (reason == Qt::MouseFocusReason)
            keyboard_ = false;
        if (keyboard_) // also where a message gives the focus back
            PlaceAround(control);
        break;
    }
    case QEvent::FocusOut:
        hide();
        break;
    case QEvent::MouseButtonPress:
        keyboard_ = false;
        hide();
        break;
    case QEvent::KeyPress:
        keyboard_ = true;
        if (control->hasFocus())
            PlaceAround(control);
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (isVisible() && control->hasFocus())
            PlaceAround(control);
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintFocusRing(painter, QRectF(rect()).adjusted(Reach, Reach, -Reach, -Reach), radius_, ground_);
}

} // namespace pulselark
