#include "workspace/ProgramStyle.h"

#include "workspace/FocusRing.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"

#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr int ToolTipDelay = 600; // ms
constexpr int TipRadius = 4;
constexpr QColor TipPlate(0x2B, 0x2E, 0x33);
constexpr QColor TipText(0xF1, 0xF1, 0xEE);
constexpr int RingRoom = 4; // around the words of the menu bar
constexpr int MenuPadding = 4;
constexpr int MenuRadius = 8;
constexpr int RowHeight = 32;
constexpr int RowPadding = 8;
constexpr int CheckColumn = 24;
constexpr int DividerHeight = 9; // a line of 1 with 4 above and below
constexpr int ArrowColumn = 24;
constexpr int ShortcutGap = 24;
constexpr int LeastTextWidth = 120;
constexpr QSize LargestPicture(32, 22);
constexpr double Faint = 0.38;

const QStyleOptionMenuItem* MenuItem(const QStyleOption* option) {
    return qstyleoption_cast<const QStyleOptionMenuItem*>(option);
}

// Left of the text: the check column and, where rows have pictures, one for them.
int TextLeft(const QStyleOptionMenuItem& item) {
    return RowPadding + CheckColumn + (item.maxIconWidth > 0 ? LargestPicture.width() + 8 : 0);
}

void PaintWords(const QStyleOptionMenuItem& item, QPainter& painter, const QRect& row) {
    const QStringList words = item.text.split('\t');
    painter.setPen(CurrentLook().BarText);
    painter.setFont(item.font);
    painter.drawText(row.adjusted(TextLeft(item), 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic | Qt::TextSingleLine,
                     words.constFirst());
    if (words.size() < 2)
        return;
    painter.setFont(TextFont(12));
    painter.setOpacity(painter.opacity() * 0.8);
    painter.drawText(row.adjusted(0, 0, -RowPadding - 4, 0), Qt::AlignRight | Qt::AlignVCenter, words[1]);
}

void PaintMenuRow(const QStyleOptionMenuItem& item, QPainter& painter) {
    const SchemeLook& look = CurrentLook();
    const QRect row = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(row.left() + RowPadding, row.top() + 4, row.width() - 2 * RowPadding, 1),
                         look.RaisedPressed);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool usable = (item.state & QStyle::State_Enabled) != 0;
    if (usable && (item.state & QStyle::State_Selected) != 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush((item.state & QStyle::State_Sunken) != 0 ? look.RaisedPressed : look.RaisedHover);
        painter.drawRoundedRect(row, 4, 4);
    }
    painter.setOpacity(usable ? 1 : Faint);
    const QRectF mark(row.left() + RowPadding, row.center().y() - 7, 16, 16);
    if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked)
        PaintIcon(painter, Icon::Tick, mark, look.BarText);
    if (!item.icon.isNull()) {
        const QSize size = item.icon.actualSize(LargestPicture);
        const int x = row.left() + RowPadding + CheckColumn;
        item.icon.paint(&painter, QRect(QPoint(x, row.center().y() - size.height() / 2), size));
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        PaintIcon(painter, Icon::ArrowRight, QRectF(row.right() - 4 - 16, mark.top(), 16, 16), look.BarText);
    PaintWords(item, painter, row);
    painter.restore();
}

void PaintMenuWord(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* bar) {
    const SchemeLook& look = CurrentLook();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool usable = (item.state & QStyle::State_Enabled) != 0;
    const bool chosen = usable && (item.state & QStyle::State_Selected) != 0;
    if (chosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush((item.state & QStyle::State_Sunken) != 0 ? look.RaisedPressed : look.RaisedHover);
        painter.drawRoundedRect(item.rect, 6, 6);
    }
    painter.setOpacity(usable ? 1 : Faint);
    painter.setPen(look.BarText);
    painter.setFont(item.font);
    // The letters show while the keyboard has the bar.
    const bool byKeyboard = bar != nullptr && bar->hasFocus();
    const auto letters = byKeyboard ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(item.rect, Qt::AlignCenter | letters | Qt::TextSingleLine, item.text);
    if (chosen && bar != nullptr && bar->hasFocus()) { // by Alt, not by the mouse
        painter.setClipping(false);
        PaintFocusRing(painter, item.rect, 6, Ground::Bar);
    }
    painter.restore();
}

void PaintMenuPanel(QPainter& painter, const QRect& rect) {
    const SchemeLook& look = CurrentLook();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look.RaisedPressed);
    painter.setBrush(look.Bar);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), MenuRadius, MenuRadius);
    painter.restore();
}

QRegion RoundedRegion(const QRect& rect, int radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

ProgramStyle::ProgramStyle() : QProxyStyle("Fusion") {}

void ProgramStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* menu = qobject_cast<QMenu*>(widget)) {
        menu->setAttribute(Qt::WA_TranslucentBackground); // for the round corners
        menu->setFont(TextFont(13));
        menu->installEventFilter(this);
    }
    if (widget->inherits("QTipLabel")) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
        widget->setContentsMargins(3, 0, 3, 0); // beside the frame and the toolkit's own pixel
        QPalette palette = widget->palette();
        for (const auto role : {QPalette::ToolTipText, QPalette::WindowText, QPalette::Text})
            palette.setColor(role, TipText);
        widget->setPalette(palette);
    }
}

void ProgramStyle::unpolish(QWidget* widget) {
    if (qobject_cast<QMenu*>(widget) != nullptr)
        widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

bool ProgramStyle::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show)
        FadeIn(static_cast<QWidget&>(*watched), MenuTime);
    return QProxyStyle::eventFilter(watched, event);
}

QPalette ProgramStyle::standardPalette() const {
    QPalette palette(FormColour::Ink, FormColour::Card, FormColour::Card, FormColour::Rule, FormColour::Edge,
                     FormColour::Ink, FormColour::Card, FormColour::Card, FormColour::Paper);
    palette.setColor(QPalette::Highlight, FormColour::Teal);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, FormColour::Hint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, FormColour::Edge);
    return palette;
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_SubMenuOverlap:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuPadding;
    case PM_ToolTipLabelFrameWidth:
        return 3; // and a pixel of the toolkit's own
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
        return RingRoom;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* answer) const {
    if (hint == SH_ToolTip_WakeUpDelay)
        return ToolTipDelay;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    if ((hint == SH_Menu_Mask || hint == SH_ToolTip_Mask) && option != nullptr) {
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(answer)) {
            mask->region = RoundedRegion(option->rect, hint == SH_Menu_Mask ? MenuRadius : TipRadius);
            return 1;
        }
    }
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const {
    const auto* item = MenuItem(option);
    if (type == CT_MenuBarItem && item != nullptr && !item->text.isEmpty()) {
        constexpr int Padding = 12;
        const QVariant high = widget != nullptr ? widget->property(PlateHeightProperty) : QVariant();
        return {size.width() + 2 * Padding, high.isValid() ? high.toInt() : RowHeight};
    }
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {10, DividerHeight};
    const QString words = item->text.section('\t', 0, 0);
    const int text = QFontMetrics(item->font).size(Qt::TextHideMnemonic, words).width();
    return {TextLeft(*item) + std::max(text, LeastTextWidth) + std::max(ShortcutGap, ArrowColumn) +
                RowPadding,
            RowHeight};
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    if (element == PE_PanelMenu) {
        PaintMenuPanel(*painter, option->rect);
        return;
    }
    if (element == PE_PanelTipLabel) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(TipPlate);
        painter->drawRoundedRect(option->rect, TipRadius, TipRadius);
        painter->restore();
        return;
    }
    if (element == PE_FrameMenu || element == PE_PanelMenuBar)
        return;
    if (element == PE_IndicatorArrowDown) {
        const QPointF middle = QRectF(option->rect).center();
        PaintIcon(*painter, Icon::ArrowDown, QRectF(middle - QPointF(8, 8), QSizeF(16, 16)),
                  option->palette.color(QPalette::Text));
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* item = MenuItem(option);
    if (element == CE_MenuItem && item != nullptr) {
        PaintMenuRow(*item, *painter);
        return;
    }
    if (element == CE_MenuBarItem && item != nullptr) {
        PaintMenuWord(*item, *painter, widget);
        return;
    }
    if (element == CE_MenuBarEmptyArea || element == CE_MenuEmptyArea)
        return;
    QProxyStyle::drawControl(element, option, painter, widget);
}

} // namespace pulselark
