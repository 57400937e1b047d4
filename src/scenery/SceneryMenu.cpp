#include "scenery/SceneryMenu.h"

#include "scenery/Scenery.h"

#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

constexpr int Padding = 16, Gap = 12, Rim = 4, Radius = 8, ButtonSide = 36;
constexpr QColor Edge(0xFF, 0xFF, 0xFF, 61);
constexpr QColor Raised(0xFF, 0xFF, 0xFF, 41);
constexpr QColor Ink(0xFF, 0xFF, 0xFF);
constexpr QColor Teal(0x1F, 0x6F, 0x6A);

// Room for the focus ring around what is drawn.
class MenuButton : public QAbstractButton {
public:
    MenuButton(const QString& name, QWidget* parent) : QAbstractButton(parent) {
        setAccessibleName(name);
        setToolTip(name);
        setCursor(Qt::PointingHandCursor);
        setAttribute(Qt::WA_Hover);
    }

protected:
    QRectF Plate() const { return QRectF(rect()).adjusted(Rim + 0.5, Rim + 0.5, -Rim - 0.5, -Rim - 0.5); }
    void PaintFocus(QPainter& painter) const {
        if (!hasFocus())
            return;
        painter.setPen(QPen(Ink, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Radius + 3, Radius + 3);
    }
};

class ThumbButton final : public MenuButton {
public:
    ThumbButton(int kind, SceneryWorkshop& workshop, QWidget* parent)
        : MenuButton(SceneryKinds()[static_cast<std::size_t>(kind)].Name, parent), kind_(kind),
          workshop_(workshop) {
        setCheckable(true);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QSize inner = (Plate().size() * devicePixelRatioF()).toSize();
        if (ordered_ != inner)
            OrderPicture(inner);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QPainterPath shape;
        shape.addRoundedRect(Plate(), Radius, Radius);
        painter.setClipPath(shape);
        painter.fillPath(shape, Raised);
        if (!picture_.isNull())
            painter.drawImage(Plate(), picture_);
        if (!isChecked() && !underMouse())
            painter.fillPath(shape, QColor(0x0A, 0x0F, 0x2B, 70));
        painter.setClipping(false);
        painter.setPen(QPen(isChecked() || underMouse() ? Ink : Edge, isChecked() ? 2 : 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(shape);
        if (isChecked())
            PaintTick(painter);
        PaintFocus(painter);
    }

private:
    void OrderPicture(QSize size) {
        constexpr double Light = 0.85;
        ordered_ = size;
        workshop_.Order(kind_, size, Light, [self = QPointer<ThumbButton>(this)](const auto& scenery) {
            if (self == nullptr)
                return;
            self->picture_ = QImage(scenery->Size(), QImage::Format_RGB32);
            QPainter painter(&self->picture_);
            scenery->Draw(painter, {12, Light});
            self->update();
        });
    }
    void PaintTick(QPainter& painter) const {
        const QPointF middle = Plate().bottomRight() - QPointF(16, 16);
        painter.setPen(QPen(Ink, 1.5));
        painter.setBrush(Teal);
        painter.drawEllipse(middle, 10, 10);
        const std::array tick{middle + QPointF(-4.5, 0), middle + QPointF(-1, 3.5),
                              middle + QPointF(5, -3.5)};
        painter.setPen(QPen(Ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
    }

    int kind_;
    SceneryWorkshop& workshop_;
    QSize ordered_;
    QImage picture_;
};

class IconButton final : public MenuButton {
public:
    enum class Kind { FullScreen, End };
    IconButton(Kind kind, const QString& name, QWidget* parent) : MenuButton(name, parent), kind_(kind) {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Edge, 1));
        painter.setBrush(underMouse() || isDown() ? Raised : QColor(Qt::transparent));
        painter.drawRoundedRect(Plate(), Radius, Radius);
        painter.setPen(QPen(Ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF middle = Plate().center();
        constexpr double Half = 7, Corner = 4;
        for (const double x : {-1.0, 1.0}) {
            for (const double y : {-1.0, 1.0}) {
                const QPointF corner = middle + QPointF(x * Half, y * Half);
                if (kind_ == Kind::End) {
                    painter.drawLine(middle, middle + QPointF(x, y) * (Half - 1));
                    continue;
                }
                painter.drawLine(corner, corner - QPointF(x * Corner, 0));
                painter.drawLine(corner, corner - QPointF(0, y * Corner));
            }
        }
        PaintFocus(painter);
    }

private:
    Kind kind_;
};

} // namespace

SceneryMenu::SceneryMenu(SceneryWorkshop& workshop, QWidget* parent) : QWidget(parent) {
    setAccessibleName("Sceneries");
    for (int number = 0; number < static_cast<int>(SceneryKinds().size()); ++number) {
        auto* thumb = new ThumbButton(number, workshop, this);
        connect(thumb, &QAbstractButton::clicked, this, [this, number] {
            hide();
            emit Chosen(number);
        });
        thumbs_.push_back(thumb);
        buttons_.push_back(thumb);
    }
    auto* full = new IconButton(IconButton::Kind::FullScreen, "Full screen (F11)", this);
    connect(full, &QAbstractButton::clicked, this, [this] {
        hide();
        emit FullScreenWanted();
    });
    auto* end = new IconButton(IconButton::Kind::End, "Close the scenery (Ctrl+Q)", this);
    connect(end, &QAbstractButton::clicked, this, &SceneryMenu::EndWanted);
    buttons_.insert(buttons_.end(), {full, end});
    hide();
}

void SceneryMenu::Open(int chosen, QColor card) {
    constexpr int NearlySolid = 235;
    card.setAlpha(NearlySolid);
    card_ = card;
    for (std::size_t i = 0; i < thumbs_.size(); ++i)
        thumbs_[i]->setChecked(static_cast<int>(i) == chosen);
    Arrange();
    show();
    raise();
    thumbs_.at(static_cast<std::size_t>(chosen))->setFocus();
}

void SceneryMenu::Arrange() {
    constexpr int Widest = 240, Narrowest = 48;
    const auto count = static_cast<int>(thumbs_.size());
    const int room = (parentWidget()->width() - 2 * Padding * 2 - (count - 1) * Gap) / count;
    const int wide = std::clamp(room, Narrowest, Widest);
    const int high = wide * 9 / 16;
    resize(2 * Padding + count * wide + (count - 1) * Gap, 2 * Padding + high + Gap + ButtonSide + 2 * Rim);
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
    int x = Padding;
    for (QAbstractButton* thumb : thumbs_) {
        thumb->setGeometry(x - Rim, Padding - Rim, wide + 2 * Rim, high + 2 * Rim);
        x += wide + Gap;
    }
    const int side = ButtonSide + 2 * Rim;
    const int y = Padding + high + Gap;
    buttons_.at(buttons_.size() - 2)->setGeometry(Padding - Rim, y, side, side);
    buttons_.back()->setGeometry(width() - Padding + Rim - side, y, side, side);
}

void SceneryMenu::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Edge, 1));
    painter.setBrush(card_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);
}

void SceneryMenu::Move(int by) {
    const auto focused = std::find(buttons_.begin(), buttons_.end(), focusWidget());
    const auto count = static_cast<int>(buttons_.size());
    const int at = focused == buttons_.end() ? 0 : static_cast<int>(focused - buttons_.begin());
    buttons_.at(static_cast<std::size_t>((at + by + count) % count))->setFocus(Qt::TabFocusReason);
}

void SceneryMenu::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    switch (event->key()) {
    case Qt::Key_Escape:
        hide();
        break;
    case Qt::Key_Left:
    case Qt::Key_Up:
        Move(-1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        Move(1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (button != nullptr)
            button->click();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SceneryMenu::hideEvent(QHideEvent* /*event*/) {
    parentWidget()->setFocus();
}

// A press on the card is none on the picture behind it.
void SceneryMenu::mousePressEvent(QMouseEvent* /*event*/) {}
void SceneryMenu::mouseDoubleClickEvent(QMouseEvent* /*event*/) {}

} // namespace pulselark
