#include "workspace/FormControls.h"

#include "workspace/FormPaint.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace pulselark {

namespace {

const QColor ToggleText(0x46, 0x71, 0x71);
const QColor TogglePlate(0x1E, 0x3B, 0x3B);
const QColor ToggleTextOnPlate(0xA2, 0xBD, 0xAF);

constexpr int BoxSize = 18;
constexpr int BoxGap = 12; // between box and text
constexpr int ActionHeight = 36;
constexpr int ActionPadding = 16;
constexpr int SignSize = 16;

void PaintSign(QPainter& painter, ActionButton::Sign sign, const QRectF& square) {
    if (sign == ActionButton::Sign::Close || sign == ActionButton::Sign::Chevron) {
        const Icon icon = sign == ActionButton::Sign::Close ? Icon::Close : Icon::ArrowDown;
        PaintIcon(painter, icon, square, FormColour::Ink);
        return;
    }
    painter.save();
    painter.translate(square.topLeft());
    painter.setPen(RoundPen(FormColour::Ink, 1.5));
    painter.setBrush(Qt::NoBrush);
    if (sign == ActionButton::Sign::Link) {
        constexpr int Degree = 16; // the toolkit counts in sixteenths
        painter.translate(8, 8);
        painter.rotate(-45);
        painter.drawLine(QPointF(-2.5, 0), QPointF(2.5, 0));
        painter.drawArc(QRectF(-7, -3, 6, 6), 60 * Degree, 240 * Degree);
        painter.drawArc(QRectF(1, -3, 6, 6), 240 * Degree, 240 * Degree);
    }
    if (sign == ActionButton::Sign::Note) {
        painter.drawPolyline(QPolygonF(QList<QPointF>{{5.5, 12}, {5.5, 3.5}, {13.5, 2}, {13.5, 10.5}}));
        painter.drawEllipse(QPointF(3.75, 12), 1.75, 1.75);
        painter.drawEllipse(QPointF(11.75, 10.5), 1.75, 1.75);
    }
    painter.restore();
}

} // namespace

// ---- Toggle ----

ToggleRow::ToggleRow(const QString& name, Box box, QWidget* parent)
    : QAbstractButton(parent), box_(box), hover_(new HoverLight(this)) {
    setObjectName(name);
    setCheckable(true);
    setFont(TextFont(13));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true); // what stands below must not jump
    setSizePolicy(policy);
}

void ToggleRow::SetCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
    updateGeometry();
}

QSize ToggleRow::sizeHint() const {
    return {Padding + BoxSize + BoxGap + fontMetrics().horizontalAdvance(text()) + Padding, Height};
}

// The arrows would go to a neighbour and press it.
void ToggleRow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore();
}

void ToggleRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    const bool plate = isEnabled() && (underMouse() || isDown());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? TogglePlate : hover_->On(TogglePlate));
    painter.drawRoundedRect(rect(), 6, 6);
    const QColor ink = isDown() ? ToggleTextOnPlate : hover_->Between(ToggleText, ToggleTextOnPlate);
    const QRectF box(Padding, (height() - BoxSize) / 2.0, BoxSize, BoxSize);
    const QRectF edge = box.adjusted(0.75, 0.75, -0.75, -0.75);
    const double radius = box_ == Box::Round ? edge.width() / 2 : 4;
    const bool filled = isChecked() && !plate && box_ == Box::Square;
    painter.setPen(QPen(plate ? ink : isChecked() ? FormColour::Teal : FormColour::Edge, 1.5));
    painter.setBrush(filled ? QBrush(FormColour::Teal) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(edge, radius, radius);
    if (isChecked() && box_ == Box::Square) {
        PaintTick(painter, box, plate ? ink : QColor(Qt::white));
    } else if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(plate ? ink : FormColour::Teal);
        painter.drawEllipse(box.center(), 4.5, 4.5);
    }
    painter.setPen(ink);
    painter.drawText(rect().adjusted(Padding + BoxSize + BoxGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     text());
}

// ---- Action ----

ActionButton::ActionButton(const QString& name, Sign sign, QWidget* parent)
    : QAbstractButton(parent), sign_(sign), hover_(new HoverLight(this)) {
    setObjectName(name);
    setFont(TextFont(13, 500));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void ActionButton::SetCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
    updateGeometry();
    update();
}

void ActionButton::SetBare(bool bare) {
    bare_ = bare;
    setSizePolicy(bare ? QSizePolicy::Fixed : QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize ActionButton::sizeHint() const {
    constexpr int LeastWidth = 88;
    constexpr int BareSize = 32;
    if (bare_)
        return {BareSize, BareSize};
    const int sign = sign_ == Sign::None ? 0 : SignSize + 8;
    const int width = fontMetrics().horizontalAdvance(text()) + 2 * ActionPadding + sign;
    return {std::max(width, LeastWidth), ActionHeight};
}

void ActionButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    painter.setPen(bare_ ? QPen(Qt::NoPen) : QPen(danger_ ? FormColour::Danger : FormColour::Edge, 1));
    painter.setBrush(isDown() ? PressedPlate : hover_->Between(FormColour::Card, HoverPlate));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    if (bare_) {
        PaintSign(painter, sign_, QRectF((width() - 16) / 2.0, (height() - 16) / 2.0, 16, 16));
        return;
    }
    painter.setPen(danger_ ? FormColour::Danger : FormColour::Ink);
    const QRect words = rect().adjusted(ActionPadding, 0, -ActionPadding, 0);
    if (sign_ == Sign::None) {
        painter.drawText(words, Qt::AlignCenter, text());
        return;
    }
    painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, text());
    PaintSign(painter, sign_,
              QRectF(width() - 12 - SignSize, (height() - SignSize) / 2.0, SignSize, SignSize));
}

// ---- Switch ----

FormSwitch::FormSwitch(const QString& name, QWidget* parent) : QAbstractButton(parent) {
    setObjectName(name);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FormSwitch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = body.height() / 2;
    painter.setPen(QPen(isChecked() ? FormColour::Teal : FormColour::Edge, 1));
    painter.setBrush(isChecked() ? FormColour::Teal : FormColour::Card);
    painter.drawRoundedRect(body, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? FormColour::Card : FormColour::Edge);
    painter.drawEllipse(QPointF(isChecked() ? width() - 11.0 : 11.0, 11), 8, 8);
    if (isChecked())
        PaintTick(painter, QRectF(3, 2, 18, 18), Qt::white);
}

// ---- Knob ----

Knob::Knob(const QString& name, int end, QWidget* parent) : QAbstractSlider(parent) {
    setObjectName(name);
    setOrientation(Qt::Horizontal);
    setRange(0, end);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(Thumb);
}

// A track that is no longer than its thumb has but one position.
void Knob::FollowPointer(double x) {
    const double track = width() - Thumb;
    const double share = track > 0 ? (x - Thumb / 2.0) / track : 0;
    setSliderPosition(minimum() + qRound(share * (maximum() - minimum())));
}

void Knob::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    FollowPointer(event->position().x());
    update();
}

void Knob::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown())
        FollowPointer(event->position().x());
}

void Knob::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isSliderDown()) {
        setSliderDown(false);
        update();
    }
}

void Knob::keyPressEvent(QKeyEvent* event) {
    constexpr int Page = 10;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        emit Stepped(-1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        emit Stepped(1);
        break;
    case Qt::Key_PageDown:
        emit Stepped(-Page);
        break;
    case Qt::Key_PageUp:
        emit Stepped(Page);
        break;
    case Qt::Key_Home:
        emit Stepped(-maximum());
        break;
    case Qt::Key_End:
        emit Stepped(maximum());
        break;
    default:
        event->ignore();
        break;
    }
}

void Knob::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void Knob::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    const double middle = height() / 2.0;
    const double left = Thumb / 2.0;
    const int range = maximum() - minimum();
    const double place = range > 0 ? static_cast<double>(sliderPosition() - minimum()) / range : 0;
    const double x = left + place * (width() - Thumb);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TrackColour);
    painter.drawRoundedRect(QRectF(0, middle - 2, width(), 4), 2, 2);
    painter.setBrush(FormColour::Teal);
    painter.drawRoundedRect(QRectF(0, middle - 2, x, 4), 2, 2);
    const auto disc = [&](double y, double radius, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(x, y), radius, radius);
    };
    const double radius = Thumb / 2.0 - 1; // a pixel of room for the shadow
    if (isSliderDown())
        disc(middle, radius + 1,
             QColor(FormColour::Teal.red(), FormColour::Teal.green(), FormColour::Teal.blue(), 51));
    disc(middle + 1, radius, QColor(0, 0, 0, 46));
    disc(middle, radius, FormColour::Teal);
    disc(middle, radius - 2, FormColour::Card);
}

} // namespace pulselark
