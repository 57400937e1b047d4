#include "workspace/FocusRing.h"

#include "workspace/Look.h"

#include <QAbstractScrollArea>
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

// The innermost widget around the control that has room for the ring: it scrolls with the control and is not
// cut at the edge of a box of fields.
QWidget* HostOnForm(QWidget* control) {
    QWidget* host = control->parentWidget();
    const auto hasRoom = [control](const QWidget* widget) {
        const QRect ring(control->mapTo(widget, QPoint(0, 0)), control->size());
        return widget->rect().contains(ring.adjusted(-Reach, -Reach, Reach, Reach));
    };
    while (!hasRoom(host) && host->parentWidget() != nullptr && !host->isWindow() &&
           qobject_cast<QAbstractScrollArea*>(host->parentWidget()->parentWidget()) == nullptr)
        host = host->parentWidget();
    return host;
}

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

// In the main window the ring may reach over the edge of a bar.
void FocusRing::PlaceAround(QWidget* control) {
    radius_ = control->property(RadiusProperty).toInt();
    ground_ = static_cast<Ground>(control->property(GroundProperty).toInt());
    QWidget* host = ground_ == Ground::Form ? HostOnForm(control) : control->window();
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
