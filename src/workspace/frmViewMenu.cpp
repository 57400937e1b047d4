#include "workspace/frmViewMenu.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/HistoryStyles.h"
#include "analysis/HrvPanel.h"
#include "analysis/PanelDrawing.h"
#include "platform/qt/QtColour.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QActionGroup>
#include <QPainter>

#include <array>
#include <utility>

namespace pulselark {

namespace {

// One series of a style's picture: a line, or the area under it.
void PaintSeries(QPainter& painter, SeriesStyle style, const QPolygonF& line, const QColor& colour) {
    if (style == SeriesStyle::None)
        return;
    painter.setPen(QPen(colour, 1.5));
    if (style == SeriesStyle::Line) {
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(line);
        return;
    }
    QPolygonF area = line;
    area << QPointF(22, 15) << QPointF(2, 15);
    painter.setBrush(colour);
    painter.drawPolygon(area);
}

QIcon StylePicture(Integer number, double density) {
    const QSize size(24, 16);
    QPixmap pixmap(size * density);
    pixmap.setDevicePixelRatio(density);
    pixmap.fill(ToQColor(PanelBackColour()));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPolygonF coherence(QList<QPointF>{{2, 11}, {8, 6}, {14, 10}, {22, 4}});
    const QPolygonF rate(QList<QPointF>{{2, 6}, {8, 10}, {14, 5}, {22, 8}});
    const QColor coherenceColour(132, 130, 232);
    const QColor rateColour(206, 73, 65);
    const HistoryStyleParts& parts = StyleOf(number);
    if (parts.CoherenceFirst)
        PaintSeries(painter, parts.Coherence, coherence, coherenceColour);
    PaintSeries(painter, parts.Rate, rate, rateColour);
    if (!parts.CoherenceFirst)
        PaintSeries(painter, parts.Coherence, coherence, coherenceColour);
    return pixmap;
}

} // namespace

QString MenuStyle() {
    const SchemeLook& look = CurrentLook();
    return QString(
               "QMenu { background: %1; color: %2; border: 1px solid %4; border-radius: 8px; padding: 4px; }"
               "QMenu::item { padding: 8px 24px 8px 32px; border-radius: 4px; min-width: 160px; }"
               "QMenu::item:selected { background: %3; }"
               "QMenu::item:disabled { color: rgba(255, 255, 255, 97); }"
               "QMenu::icon { left: 8px; }"
               "QMenu::separator { height: 1px; background: %4; margin: 4px 8px; }")
        .arg(look.Bar.name(), look.BarText.name(), look.RaisedHover.name(), look.RaisedPressed.name());
}

frmViewMenu::frmViewMenu(QWidget* parent, std::function<void()> lookChanged, std::function<void()> drawn)
    : QMenu(Text(TextMenuView), parent), lookChanged_(std::move(lookChanged)), drawn_(std::move(drawn)) {
    setObjectName("frmViewMenu");
    setAccessibleName(Text(TextMenuView));
    setAttribute(Qt::WA_TranslucentBackground);
    AddColourSets();
    AddToggle(TextToggleSolidGraphs, "labSolidGraphs", SolidGraphs, lookChanged_);
    addSeparator();
    AddHistoryStyles();
    AddAveraging();
    addSeparator();
    AddToggle(TextToggleBpmCoherence, "labBpmCoherence", ShowBpmCoherence, [] {
        DrawCoherenceA();
        DrawCoherenceB();
    });
    AddToggle(TextToggleHrvPower, "labHrvPower", ShowHrvPower, lookChanged_);
    connect(this, &QMenu::aboutToShow, this, &frmViewMenu::ShowMarks);
}

void frmViewMenu::AddToggle(int text, const char* name, short& value, const std::function<void()>& then) {
    QAction* action = addAction(Text(text));
    action->setObjectName(name);
    action->setCheckable(true);
    marks_.append([action, &value] { action->setChecked(value != Off); });
    connect(action, &QAction::triggered, this, [this, &value, then] {
        value = static_cast<Boolean>(~value);
        then();
        drawn_();
    });
}

QActionGroup* frmViewMenu::NewGroup() {
    groups_.append(new QActionGroup(this));
    return groups_.last();
}

void frmViewMenu::AddColourSets() {
    QMenu* menu = addMenu(Text(TextColourSet));
    menu->setAttribute(Qt::WA_TranslucentBackground);
    QActionGroup* group = NewGroup();
    for (int scheme = 0; scheme < ColourSchemeCount; ++scheme) {
        QAction* action = menu->addAction(Text(TextSchemeMidnight + scheme));
        action->setObjectName(QString("picStyle%1").arg(scheme));
        action->setCheckable(true);
        action->setActionGroup(group);
        marks_.append([action, scheme] { action->setChecked(ColourSchemeIndex == scheme); });
        connect(action, &QAction::triggered, this, [this, scheme] {
            ColourSchemeIndex = static_cast<Integer>(scheme);
            lookChanged_();
            drawn_();
        });
    }
}

void frmViewMenu::AddHistoryStyles() {
    QMenu* menu = addMenu(Text(TextModuleHistory) + ": " + Text(TextHistoryStyle));
    menu->setAttribute(Qt::WA_TranslucentBackground);
    QActionGroup* group = NewGroup();
    for (Integer style = 1; style <= HistoryStyleMax; ++style) {
        QAction* action = menu->addAction(QString("%1 %2").arg(Text(TextHistoryStyle)).arg(style));
        action->setObjectName(QString("hsHisStyle%1").arg(style));
        action->setIconVisibleInMenu(true);
        action->setActionGroup(group);
        action->setCheckable(true);
        marks_.append([this, action, style] {
            action->setIcon(StylePicture(style, devicePixelRatioF()));
            action->setChecked(HistoryStyle == style);
        });
        connect(action, &QAction::triggered, this, [this, style] {
            SetHistoryStyle(style);
            drawn_();
        });
    }
}

void frmViewMenu::AddAveraging() {
    constexpr std::array<Integer, 8> Seconds{1, 2, 5, 10, 15, 20, 25, 30};
    QMenu* menu = addMenu(Text(TextModuleHistory) + ": " + Text(TextKnobAveraging));
    menu->setAttribute(Qt::WA_TranslucentBackground);
    QActionGroup* group = NewGroup();
    for (const Integer seconds : Seconds) {
        QAction* action = menu->addAction(QString::number(seconds) + Text(TextSecondsShort));
        action->setObjectName(QString("labHisAv%1").arg(seconds));
        action->setCheckable(true);
        action->setActionGroup(group);
        marks_.append([action, seconds] { action->setChecked(MovingAverageWidth + 1 == seconds); });
        connect(action, &QAction::triggered, this, [this, seconds] {
            MovingAverageWidth = static_cast<Integer>(seconds - 1);
            SmoothSeries();
            RedrawHistory();
            drawn_();
        });
    }
}

void frmViewMenu::ShowMarks() {
    const QString style = MenuStyle();
    for (QMenu* menu : findChildren<QMenu*>())
        menu->setStyleSheet(style);
    for (const auto& mark : marks_)
        mark();
}

} // namespace pulselark
