#include "workspace/frmViewMenu.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/GameChart.h"
#include "analysis/History.h"
#include "analysis/HistoryStyles.h"
#include "analysis/HrvPanel.h"
#include "analysis/PanelDrawing.h"
#include "feedback/PartnerTools.h"
#include "images/BackgroundPicture.h"
#include "persistence/AppSettings.h"
#include "persistence/Configuration.h"
#include "platform/qt/QtColour.h"
#include "session/Controls.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/ModulePanels.h"
#include "session/Settings.h"
#include "session/SettingsActions.h"
#include "session/Training.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QPainter>

#include <algorithm>
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

QIcon StylePicture(Integer number, bool chosen, double density) {
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
    if (chosen) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(CurrentLook().Running, 2));
        painter.drawRect(QRectF(1, 1, 22, 14));
    }
    return pixmap;
}

// The panels of the configuration in the preview buffer, as they stand on the canvas.
QIcon ConfigPicture(double density) {
    const QSizeF size(32, 22);
    QPixmap pixmap((size * density).toSize());
    pixmap.setDevicePixelRatio(density);
    const SchemeLook& look = CurrentLook();
    pixmap.fill(look.Desk);
    QPainter painter(&pixmap);
    const PreviewPlace& canvas = ConfigPreview[CanvasRow];
    const double sx = size.width() / std::max<double>(canvas.Width, 1);
    const double sy = size.height() / std::max<double>(canvas.Height, 1);
    painter.setPen(look.BorderActive);
    painter.setBrush(look.TitleBar);
    for (std::size_t i = 0; i < ModulePanelCount; ++i) {
        const PreviewPlace& panel = ConfigPreview[i];
        if (panel.Visible != Off)
            painter.drawRect(QRectF(panel.Left * sx, panel.Top * sy, panel.Width * sx, panel.Height * sy));
    }
    return pixmap;
}

} // namespace

frmViewMenu::frmViewMenu(QWidget* parent, std::function<void()> lookChanged,
                         std::function<void(const std::function<void()>&)> run)
    : QMenu(parent), lookChanged_(std::move(lookChanged)), run_(std::move(run)) {
    setObjectName("frmViewMenu");
    AddPanels();
    AddMainView();
    addSeparator();
    AddLayout();
    addSeparator();
    AddTidalView();
    AddColourSets();
    AddBackground();
    AddToggle(TextToggleSolidGraphs, "labSolidGraphs", SolidGraphs, lookChanged_);
    AddHistoryStyles();
    AddAveraging();
    AddGames();
    AddToggle(TextToggleBpmCoherence, "labBpmCoherence", ShowBpmCoherence, [] {
        DrawCoherenceA();
        DrawCoherenceB();
    });
    AddToggle(TextToggleHrvPower, "labHrvPower", ShowHrvPower, lookChanged_);
    connect(this, &QMenu::aboutToShow, this, &frmViewMenu::ShowMarks);
}

QAction* frmViewMenu::AddEntry(QMenu* menu, int text, const QString& name, std::function<void()> routine) {
    QAction* action = menu->addAction(QString());
    action->setObjectName(name);
    texts_.append([action, text] { action->setText(Text(text)); });
    connect(action, &QAction::triggered, this, [this, routine = std::move(routine)] { run_(routine); });
    return action;
}

QAction* frmViewMenu::AddToggle(int text, const char* name, short& value, std::function<void()> then) {
    QAction* action = AddEntry(this, text, name, [&value, then = std::move(then)] {
        value = static_cast<Boolean>(~value);
        then();
    });
    action->setCheckable(true);
    marks_.append([action, &value] { action->setChecked(value != Off); });
    return action;
}

QMenu* frmViewMenu::AddSubmenu(int text, const char* name, int before) {
    QMenu* menu = addMenu(QString());
    menu->setObjectName(name);
    texts_.append(
        [menu, text, before] { menu->setTitle(before > 0 ? Text(before) + ": " + Text(text) : Text(text)); });
    return menu;
}

void frmViewMenu::AddPanels() {
    for (int i = 0; i < ModulePanelCount; ++i) {
        const auto shown = [i] { return picModule[static_cast<std::size_t>(i)].Visible != Off; };
        QAction* action = AddEntry(this, TextModuleEcgInput + i, QString("imOK%1").arg(i),
                                   [i, shown] { ShowPanel(i, !shown()); });
        action->setCheckable(true);
        marks_.append([action, shown] { action->setChecked(shown()); });
    }
}

// From the training back to the panels.
void frmViewMenu::AddMainView() {
    QAction* action = AddEntry(this, TextMenuMainView, "labMainView", [] { LeaveTraining(); });
    marks_.append([action] { action->setEnabled(TrainingActive != Off); });
}

void frmViewMenu::AddLayout() {
    AddToggle(TextMenuLockConfig, "labLockConfig", LockPanels, [] {});
    AddToggle(TextMenuSnapPanels, "labSnapPanels", SnapPanels, [] {});
    configurations_ = AddSubmenu(TextMenuConfigurations, "fileList");
    AddEntry(this, TextActionDefaultConfig, "labDefaultConfig", [this] {
        DefaultLayout();
        lookChanged_();
    });
    AddEntry(this, TextMenuPreset, "labPreset", [this] {
        SetPresetSettings();
        lookChanged_();
    });
    QAction* full = AddEntry(this, TextMenuFullScreen, "labFullScreen", [this] {
        QWidget* window = parentWidget()->window();
        window->isFullScreen() ? window->showNormal() : window->showFullScreen();
    });
    full->setShortcut(QKeySequence("F11"));
    parentWidget()->addAction(full);
}

// Each configuration with a picture of where its panels stand.
void frmViewMenu::ListConfigurations() {
    configurations_->clear();
    RefreshConfigList();
    if (fileList.empty())
        configurations_->addAction(Text(TextMenuNoConfigurations))->setEnabled(false);
    for (std::size_t i = 0; i < fileList.size(); ++i) {
        const int index = static_cast<int>(i);
        LoadConfigPicture(index);
        QAction* action = configurations_->addAction(QString::fromStdString(fileList[i]).section('.', 0, 0));
        action->setObjectName(QString("fileList%1").arg(index));
        action->setIcon(ConfigPicture(devicePixelRatioF()));
        action->setIconVisibleInMenu(true);
        connect(action, &QAction::triggered, this, [this, index] { run_([index] { LoadConfig(index); }); });
    }
}

void frmViewMenu::AddTidalView() {
    QAction* action = AddEntry(this, TextMenuTidalView, "labTidalView",
                               [] { AppLinkOnly == Off ? StartTidalView() : LeaveTidalView(); });
    action->setCheckable(true);
    marks_.append([action] { action->setChecked(AppLinkOnly != Off); });
}

void frmViewMenu::AddGames() {
    QAction* action = AddEntry(this, TextGames, "labGames",
                               [] { GamesOpen == Off ? OpenGamesFromHistory() : CloseGames(); });
    action->setCheckable(true);
    marks_.append([action] { action->setChecked(GamesOpen != Off); });
}

void frmViewMenu::AddColourSets() {
    QMenu* menu = AddSubmenu(TextColourSet, "picSetStyle");
    for (int scheme = 0; scheme < ColourSchemeCount; ++scheme) {
        QAction* action =
            AddEntry(menu, TextSchemeMidnight + scheme, QString("picStyle%1").arg(scheme), [this, scheme] {
                SetColourScheme(scheme);
                lookChanged_();
            });
        action->setCheckable(true);
        marks_.append([action, scheme] { action->setChecked(ColourSchemeIndex == scheme); });
    }
}

void frmViewMenu::AddBackground() {
    AddToggle(TextToggleShowBackground, "labShowBackground", ShowBackground, lookChanged_);
    AddEntry(this, TextMenuBackgroundPicture, "labBackgroundPicture", [this] {
        if (ChooseBackgroundPicture()) {
            ShowBackground = On; // whoever chooses a picture wants to see it
            lookChanged_();
        }
    });
    AddEntry(this, TextMenuOwnBackground, "labOwnBackground", [this] {
        if (UseOwnBackground())
            lookChanged_();
    });
}

void frmViewMenu::AddHistoryStyles() {
    QMenu* menu = AddSubmenu(TextHistoryStyle, "picHisStyle", TextModuleHistory);
    for (Integer style = 1; style <= HistoryStyleMax; ++style) {
        QAction* action = AddEntry(menu, TextHistoryStyle, QString("hsHisStyle%1").arg(style),
                                   [style] { SetHistoryStyle(style); });
        action->setIconVisibleInMenu(true);
        action->setCheckable(true);
        texts_.append(
            [action, style] { action->setText(QString("%1 %2").arg(Text(TextHistoryStyle)).arg(style)); });
        marks_.append([this, action, style] {
            action->setIcon(StylePicture(style, HistoryStyle == style, devicePixelRatioF()));
            action->setChecked(HistoryStyle == style);
        });
    }
}

void frmViewMenu::AddAveraging() {
    constexpr std::array<Integer, 8> Seconds{1, 2, 5, 10, 15, 20, 25, 30};
    QMenu* menu = AddSubmenu(TextKnobAveraging, "picHisAvUp", TextModuleHistory);
    for (const Integer seconds : Seconds) {
        QAction* action = AddEntry(menu, TextSecondsShort, QString("labHisAv%1").arg(seconds), [seconds] {
            MovingAverageWidth = static_cast<Integer>(seconds - 1);
            MovingAverageKnob = static_cast<Integer>(Round(MovingAverageWidth / 29.0 * 1000));
            SmoothSeries();
            RedrawHistory();
        });
        action->setCheckable(true);
        texts_.append(
            [action, seconds] { action->setText(QString::number(seconds) + Text(TextSecondsShort)); });
        marks_.append([action, seconds] { action->setChecked(MovingAverageWidth + 1 == seconds); });
    }
}

void frmViewMenu::Retranslate() {
    setTitle(Text(TextMenuView));
    setAccessibleName(Text(TextMenuView));
    for (const auto& text : texts_)
        text();
}

void frmViewMenu::ShowMarks() {
    ListConfigurations();
    for (const auto& mark : marks_)
        mark();
}

} // namespace pulselark
