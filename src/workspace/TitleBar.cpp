#include "workspace/TitleBar.h"

#include "analysis/ColourSchemes.h"
#include "platform/qt/QtColour.h"
#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"
#include "workspace/Texts.h"

#include <QMouseEvent>
#include <QPainter>

namespace pulselark {

namespace {

constexpr int MarkCell = 24;
constexpr int EdgeWidth = 8;
constexpr int CornerSize = 16;
constexpr int NarrowPanel = 240; // below it only the title and the closing mark are left

int ButtonOf(const QMouseEvent* event) {
    return (event->buttons() & Qt::LeftButton) != 0 ? 1 : 0;
}

} // namespace

TitleMark::TitleMark(const QString& name, Icon icon, QWidget* parent)
    : QAbstractButton(parent), icon_(icon), hover_(new HoverLight(this)) {
    setObjectName(name);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::ArrowCursor);
    FocusRing::Of(window()).Watch(this, 4, Ground::Module);
}

void TitleMark::SetIcon(Icon icon) {
    if (icon == icon_)
        return;
    icon_ = icon;
    update();
}

void TitleMark::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double light = hasFocus() ? 1 : hover_->Level();
    if (light > 0) {
        QColor plate = look.TitleText;
        plate.setAlphaF(static_cast<float>((isDown() ? 0.20 : 0.12) * light));
        QColor edge = ToQColor(CurrentScheme().ButtonFace);
        edge.setAlphaF(static_cast<float>(light));
        painter.setBrush(plate);
        painter.setPen(edge);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    const double side = std::min(14, height() - 6);
    PaintIcon(painter, icon_, QRectF((width() - side) / 2, (height() - side) / 2, side, side),
              hasFocus() ? look.TitleText : hover_->Between(look.TitleGlyph, look.TitleText));
}

TitleBar::TitleBar(int index, Icon icon, QWidget* parent)
    : QWidget(parent), icon_(icon), pin_(new TitleMark(QString("picPin%1").arg(index), Icon::Pin, this)),
      enlarge_(new TitleMark(QString("picEnlarge%1").arg(index), Icon::Enlarge, this)),
      close_(new TitleMark(QString("picClose%1").arg(index), Icon::Close, this)) {
    setObjectName(QString("picTopBar%1").arg(index));
    connect(pin_, &TitleMark::clicked, this, &TitleBar::PinClicked);
    connect(enlarge_, &TitleMark::clicked, this, &TitleBar::EnlargeClicked);
    connect(close_, &TitleMark::clicked, this, &TitleBar::CloseClicked);
}

void TitleBar::SetTitle(const QString& title) {
    title_ = title;
    setAccessibleName(title);
    const auto name = [&title](TitleMark* mark, int text) {
        mark->setToolTip(Text(text));
        mark->setAccessibleName(title + ": " + Text(text));
    };
    name(pin_, TextPinPanel);
    name(enlarge_, TextEnlargePanel);
    name(close_, TextClosePanel);
    update();
}

void TitleBar::SetState(bool locked, bool enlarged) {
    if (locked == locked_ && enlarged == enlarged_)
        return;
    locked_ = locked;
    enlarged_ = enlarged;
    pin_->SetIcon(locked ? Icon::Pinned : Icon::Pin);
    enlarge_->SetIcon(enlarged ? Icon::Restore : Icon::Enlarge);
    enlarge_->setToolTip(Text(enlarged ? TextRestorePanel : TextEnlargePanel));
    setCursor(locked ? Qt::ArrowCursor : Qt::OpenHandCursor);
}

void TitleBar::resizeEvent(QResizeEvent* /*event*/) {
    const bool narrow = width() < NarrowPanel;
    int right = width() - 4;
    for (TitleMark* mark : {close_, enlarge_, pin_}) {
        const bool shown = !narrow || mark == close_;
        mark->setVisible(shown);
        if (!shown)
            continue;
        right -= MarkCell;
        mark->setGeometry(right, std::max(0, (height() - MarkCell) / 2), MarkCell,
                          std::min(MarkCell, height()));
    }
}

void TitleBar::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    PaintIcon(painter, icon_, QRectF(10, (height() - 16) / 2.0, 16, 16), look.TitleText);
    painter.setPen(look.TitleText);
    painter.setFont(TextFont(height() < 28 ? 12 : 13, 500));
    const int marks = width() < NarrowPanel ? MarkCell : MarksWidth;
    const QRect room(34, 0, width() - 34 - marks - 8, height());
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(title_, Qt::ElideRight, room.width()));
}

void TitleBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Pressed(event->position().x(), event->position().y());
}

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    emit Moved(ButtonOf(event), event->position().x(), event->position().y());
}

void TitleBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Released();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit EnlargeClicked();
}

PanelSizer::PanelSizer(Edge edge, int index, QWidget* parent) : QWidget(parent), edge_(edge) {
    const char* const names[] = {"picRSizer", "picBSizer", "picESizer"};
    const Qt::CursorShape cursors[] = {Qt::SizeHorCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor};
    setObjectName(QString("%1%2").arg(names[static_cast<int>(edge)]).arg(index));
    setAccessibleName(Text(TextSizePanel));
    setToolTip(Text(TextSizePanel) + QString::fromUtf8(" (F6, Shift + ← ↑ → ↓)"));
    setCursor(cursors[static_cast<int>(edge)]);
}

void PanelSizer::Place(const QSize& panel) {
    switch (edge_) {
    case Edge::Right:
        setGeometry(panel.width() - EdgeWidth, 0, EdgeWidth, panel.height());
        break;
    case Edge::Bottom:
        setGeometry(0, panel.height() - EdgeWidth, panel.width(), EdgeWidth);
        break;
    case Edge::Corner:
        setGeometry(panel.width() - CornerSize, panel.height() - CornerSize, CornerSize, CornerSize);
        break;
    }
    raise();
}

void PanelSizer::paintEvent(QPaintEvent* /*event*/) {
    if (edge_ != Edge::Corner)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(CurrentLook().TitleGlyph, 1.5, Qt::SolidLine, Qt::RoundCap));
    const double far = CornerSize - 3.5;
    painter.drawLine(QPointF(far, far - 10), QPointF(far - 10, far));
    painter.drawLine(QPointF(far, far - 5), QPointF(far - 5, far));
}

void PanelSizer::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Pressed(event->position().x(), event->position().y());
}

void PanelSizer::mouseMoveEvent(QMouseEvent* event) {
    emit Moved(ButtonOf(event), event->position().x(), event->position().y());
}

void PanelSizer::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit Released();
}

} // namespace pulselark
