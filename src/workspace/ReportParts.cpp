#include "workspace/ReportParts.h"

#include "workspace/FormPaint.h"
#include "workspace/Look.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int SymbolHeight = 44;
constexpr int SymbolPadding = 12;
constexpr int BoxSize = 18;
constexpr int PictureSize = 24;
constexpr int Gap = 8;

// A ring with an arrow up to the right, or with a cross below; on a grid of 24.
void PaintPerson(QPainter& painter, int symbol, QPointF corner, const QColor& colour) {
    painter.save();
    painter.translate(corner);
    painter.setPen(RoundPen(colour, 2));
    painter.setBrush(Qt::NoBrush);
    if (symbol == 0) {
        painter.drawEllipse(QPointF(9.5, 14.5), 6, 6);
        painter.drawLine(QPointF(13.9, 10.1), QPointF(20.5, 3.5));
        painter.drawPolyline(QPolygonF(QList<QPointF>{{15, 3.5}, {20.5, 3.5}, {20.5, 9}}));
    } else {
        painter.drawEllipse(QPointF(12, 8.5), 6, 6);
        painter.drawLine(QPointF(12, 14.7), QPointF(12, 22));
        painter.drawLine(QPointF(8.5, 18.5), QPointF(15.5, 18.5));
    }
    painter.restore();
}

// On a grid of 16.
void PaintPadlock(QPainter& painter, QPointF corner, const QColor& colour) {
    constexpr int Degree = 16; // the toolkit counts in sixteenths
    painter.save();
    painter.translate(corner);
    painter.setPen(RoundPen(colour, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(5, 2, 6, 7), 0, 180 * Degree);
    painter.drawLine(QPointF(5, 5.5), QPointF(5, 7.5));
    painter.drawLine(QPointF(11, 5.5), QPointF(11, 7.5));
    painter.drawRoundedRect(QRectF(3, 7.5, 10, 6.5), 1.5, 1.5);
    painter.drawLine(QPointF(8, 10), QPointF(8, 11.5));
    painter.restore();
}

QString BoxStyle() {
    return QString("QLineEdit { background: %1; color: %2; border: 1px solid %3; border-radius: 6px;"
                   " padding: 0 11px; min-height: 30px; max-height: 30px; selection-background-color: %4;"
                   " selection-color: white; }"
                   "QLineEdit[readOnly=\"true\"] { background: %5; border: 1px dashed %3; }")
        .arg(FormColour::Card.name(), FormColour::Ink.name(), FormColour::Edge.name(),
             FormColour::Teal.name(), FormColour::Paper.name());
}

} // namespace

// ---- Person symbol ----

ReportSymbol::ReportSymbol(int symbol, QWidget* parent) : QAbstractButton(parent), symbol_(symbol) {
    setObjectName(QString("labMF%1").arg(symbol));
    setCheckable(true);
    setFont(TextFont(13));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void ReportSymbol::SetCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
    updateGeometry();
}

QSize ReportSymbol::sizeHint() const {
    const int words = fontMetrics().horizontalAdvance(text());
    return {SymbolPadding + BoxSize + Gap + PictureSize + Gap + words + SymbolPadding, SymbolHeight};
}

void ReportSymbol::enterEvent(QEnterEvent* /*event*/) {
    update();
}

void ReportSymbol::leaveEvent(QEvent* /*event*/) {
    update();
}

void ReportSymbol::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    const double edge = isChecked() ? 2 : 1;
    painter.setPen(QPen(isChecked() ? FormColour::Teal : FormColour::Edge, edge));
    painter.setBrush(isDown() ? PressedPlate : isEnabled() && underMouse() ? HoverPlate : FormColour::Card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), 6, 6);
    const QRectF box(SymbolPadding, (height() - BoxSize) / 2.0, BoxSize, BoxSize);
    painter.setPen(QPen(isChecked() ? FormColour::Teal : FormColour::Edge, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(box.adjusted(0.75, 0.75, -0.75, -0.75));
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(FormColour::Teal);
        painter.drawEllipse(box.center(), 4.5, 4.5);
    }
    PaintPerson(painter, symbol_, {box.right() + Gap, (height() - PictureSize) / 2.0}, FormColour::Ink);
    painter.setPen(FormColour::Ink);
    const int words = static_cast<int>(box.right()) + Gap + PictureSize + Gap;
    painter.drawText(rect().adjusted(words, 0, -SymbolPadding, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
}

// ---- Lock plate ----

ReportLockPlate::ReportLockPlate(QWidget* parent) : QWidget(parent) {
    setObjectName("imLockDoc");
    setFont(TextFont(13, 500));
    QSizePolicy policy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true); // what stands below must not jump
    setSizePolicy(policy);
}

void ReportLockPlate::SetCaption(const QString& caption) {
    caption_ = caption;
    setAccessibleName(caption);
    updateGeometry();
    update();
}

QSize ReportLockPlate::sizeHint() const {
    return {12 + 16 + Gap + fontMetrics().horizontalAdvance(caption_) + 12, 36};
}

void ReportLockPlate::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    painter.setPen(QPen(FormColour::Teal, 1));
    painter.setBrush(PressedPlate);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    PaintPadlock(painter, {12, (height() - 16) / 2.0}, FormColour::Ink);
    painter.setPen(FormColour::Ink);
    painter.drawText(rect().adjusted(12 + 16 + Gap, 0, -12, 0), Qt::AlignLeft | Qt::AlignVCenter, caption_);
}

// ---- Text box ----

ReportBox::ReportBox(int field, QWidget* parent) : QLineEdit(parent) {
    setObjectName(QString("tbSD%1").arg(field));
    setFont(TextFont(13));
    setStyleSheet(BoxStyle());
    setFrame(false);
}

void ReportBox::Show(const std::string& text, bool locked) {
    const QString shown = QString::fromStdString(text);
    if (shown != this->text()) {
        setText(shown);
        if (!hasFocus())
            setCursorPosition(0);
    }
    if (locked == isReadOnly())
        return;
    setReadOnly(locked);
    style()->unpolish(this); // the style asks for the property only now
    style()->polish(this);
}

} // namespace pulselark
