#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/Replay.h"
#include "session/SettingsActions.h"
#include "workspace/WindowTest.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <filesystem>
#include <fstream>

namespace pulselark {
namespace {

class FrmMain : public WindowTest {
protected:
    FrmMain() { OpenWindow(1280, 800); }

    // The demo at second 1, stopped.
    void OpenDemo() {
        OpenNamedSessionFromMenu(Demo());
        EXPECT_TRUE(timReplay.Enabled);
        EndReplay();
        Main->Mirror();
    }
    template <class Widget = QWidget>
    Widget* Find(const char* name) {
        auto* widget = Main->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    void Trigger(const char* action) { Find<QAction>(action)->trigger(); }
    static void Mouse(QWidget* widget, QEvent::Type type, const QPoint& at) {
        const bool move = type == QEvent::MouseMove;
        const bool up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, widget->mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton,
                          up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    // Waits for the next modal window and hands it over; `Asked` tells what message windows said.
    void Meet(const std::function<void(QWidget*)>& then, int patience = 1000) {
        auto* soon = new QTimer(qApp);
        soon->setSingleShot(true);
        QObject::connect(soon, &QTimer::timeout, qApp, [=, this] {
            soon->deleteLater();
            QWidget* window = QApplication::activeModalWidget();
            if (window == nullptr && patience > 0)
                return Meet(then, patience - 1);
            ASSERT_NE(window, nullptr);
            if (const auto* label = window->findChild<QLabel*>("labMessage"))
                Asked.append(label->text());
            then(window);
        });
        soon->start(0);
    }
    void Answer(
        const char* button, const std::function<void()>& before = [] {}) {
        Meet([=](QWidget* window) {
            before();
            QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
        });
    }

    QStringList Asked;
};

TEST_F(FrmMain, SpacePlaysAtNormalSpeedAndStops) {
    OpenDemo();
    QTest::keyClick(Main.get(), Qt::Key_Space);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(timReplay.Interval, 1000);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QApplication::sendEvent(Main.get(), &held);
    EXPECT_TRUE(timReplay.Enabled);
    QTest::keyClick(Main.get(), Qt::Key_Space);
    EXPECT_FALSE(timReplay.Enabled);
    QTest::keyClick(Find("picReplay"), Qt::Key_Return); // the button by keyboard
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(timReplay.Interval, 1000);
}

TEST_F(FrmMain, ReplayButtonHasTwoSpeedsAndStopGoesBack) {
    OpenDemo();
    QWidget* replay = Find("picReplay");
    QTest::mouseClick(replay, Qt::LeftButton);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(timReplay.Interval, 37500);
    QTest::mouseClick(replay, Qt::LeftButton);
    EXPECT_FALSE(timReplay.Enabled);
    QTest::mouseClick(replay, Qt::RightButton);
    EXPECT_TRUE(timReplay.Enabled);
    EXPECT_EQ(timReplay.Interval, 1000);
    Mouse(replay, QEvent::MouseButtonPress, {10, 10});
    Mouse(replay, QEvent::MouseButtonRelease, {-20, 10}); // let go beside it
    EXPECT_TRUE(timReplay.Enabled);
    SessionTick = 120;
    QTest::mouseClick(Find("picStop"), Qt::LeftButton);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(SessionTick, 1);
    const QString tip = replay->toolTip().toLower();
    EXPECT_TRUE(tip.contains("left") && tip.contains("right")) << tip.toStdString();
}

TEST_F(FrmMain, WithoutASessionNothingCanBePlayed) {
    for (const char* name : {"picStartSmp", "picReplay", "picStop"})
        QTest::mouseClick(Find(name), Qt::LeftButton);
    for (const auto key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_End, Qt::Key_Escape})
        QTest::keyClick(Main.get(), key);
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(SessionTick, 1);
    EXPECT_TRUE(Find<QAction>("labOpenSession")->isEnabled());
    EXPECT_FALSE(Find<QAction>("labSaveSession")->isEnabled());
    const QString notice = QString::fromStdString(LanguageText(TextNoSession));
    EXPECT_TRUE(Find("picGCA")->accessibleDescription().contains(notice));
    const QImage before = Find("picReplay")->grab().toImage();
    OpenDemo();
    EXPECT_TRUE(Find<QAction>("labSaveSession")->isEnabled());
    EXPECT_FALSE(Find("picGCA")->accessibleDescription().contains(notice));
    EXPECT_NE(Find("picReplay")->grab().toImage(), before); // no longer dimmed
}

TEST_F(FrmMain, KeysSeek) {
    OpenDemo();
    QTest::keyClick(Main.get(), Qt::Key_Space);
    const struct {
        Qt::Key Key;
        Qt::KeyboardModifier With;
        Long Second;
    } keys[] = {{Qt::Key_PageDown, Qt::NoModifier, 31}, {Qt::Key_Right, Qt::NoModifier, 32},
                {Qt::Key_Right, Qt::ShiftModifier, 37}, {Qt::Key_Left, Qt::NoModifier, 36},
                {Qt::Key_PageUp, Qt::NoModifier, 6},    {Qt::Key_Left, Qt::ShiftModifier, 1},
                {Qt::Key_End, Qt::NoModifier, 300},     {Qt::Key_Right, Qt::NoModifier, 300},
                {Qt::Key_Home, Qt::NoModifier, 1}};
    for (const auto& [key, with, second] : keys) {
        QTest::keyClick(Main.get(), key, with);
        EXPECT_EQ(SessionTick, second);
        EXPECT_EQ(second == 1 || AnalysisSecond == second, true) << second;
        EXPECT_FALSE(timReplay.Enabled);
    }
}

// Near the bottom of the panel a step is a second, and 33 pixels wide.
TEST_F(FrmMain, DraggingOnTheEcgSeeksAndEscapeUndoes) {
    OpenDemo();
    QWidget* panel = Find("picIA");
    const int y = panel->height() - 3;
    QTest::keyClick(Main.get(), Qt::Key_PageDown);
    const QImage before = panel->grab().toImage();
    Mouse(panel, QEvent::MouseButtonPress, {20, y});
    Mouse(panel, QEvent::MouseMove, {130, y});
    EXPECT_EQ(SessionTick, 34);
    EXPECT_EQ(labPTime.Caption, "00:34");
    EXPECT_NE(panel->grab().toImage(), before);
    QTest::keyClick(Main.get(), Qt::Key_Escape);
    EXPECT_EQ(SessionTick, 31);
    EXPECT_EQ(panel->grab().toImage(), before);
    Mouse(panel, QEvent::MouseMove, {200, y}); // the button is still down
    Mouse(panel, QEvent::MouseButtonRelease, {200, y});
    EXPECT_EQ(SessionTick, 31);
    Mouse(panel, QEvent::MouseButtonPress, {20, y});
    Mouse(panel, QEvent::MouseMove, {130, y});
    Mouse(panel, QEvent::MouseButtonRelease, {130, y});
    QTest::keyClick(Main.get(), Qt::Key_Escape); // too late
    EXPECT_EQ(SessionTick, 34);
}

TEST_F(FrmMain, DraggingAScaleAndEscapeUndoes) {
    OpenDemo();
    QTest::keyClick(Main.get(), Qt::Key_End);
    QWidget* panel = Find("picGCA");
    const QImage before = panel->grab().toImage();
    Mouse(panel, QEvent::MouseButtonPress, {60, 60});
    Mouse(panel, QEvent::MouseMove, {60, 40}); // 20 up, two to the step
    EXPECT_NEAR(CoherenceGain, std::pow(100, 1.1), 1e-9);
    EXPECT_NE(panel->grab().toImage(), before);
    QTest::keyClick(Main.get(), Qt::Key_Escape);
    EXPECT_DOUBLE_EQ(CoherenceGain, 100);
    EXPECT_EQ(panel->grab().toImage(), before);
    Mouse(panel, QEvent::MouseMove, {60, 20});
    Mouse(panel, QEvent::MouseButtonRelease, {60, 20});
    EXPECT_DOUBLE_EQ(CoherenceGain, 100);
    QWidget* history = Find("picHisA");
    Mouse(history, QEvent::MouseButtonPress, {60, 60});
    Mouse(history, QEvent::MouseMove, {110, 60});
    Mouse(history, QEvent::MouseButtonRelease, {110, 60});
    EXPECT_EQ(HistorySpanSeconds, 90);
}

TEST_F(FrmMain, ClosingAsksForAnUnsavedSession) {
    OpenDemo();
    SessionUnsaved = On;
    const QString question = QString::fromStdString(LanguageText(TextSaveBeforeExit));
    Answer("comCancel");
    EXPECT_FALSE(Main->close());
    Meet([](QWidget* window) { QTest::keyClick(window, Qt::Key_Escape); });
    EXPECT_FALSE(Main->close());
    const auto cancelDialog = [](QWidget* window) { dynamic_cast<QFileDialog&>(*window).reject(); };
    Answer("comYes", [&] { Meet(cancelDialog); });
    EXPECT_FALSE(Main->close()); // no name, no saving, no end
    EXPECT_EQ(SessionUnsaved, On);
    Meet([](QWidget* window) { // from the main button to the one that throws the session away
        EXPECT_EQ(window->accessibleName().toStdString(), LanguageText(TextSignQuestion));
        EXPECT_TRUE(window->findChild<QPushButton*>("comNo")->property("destructive").toBool());
        QTest::keyClick(window->focusWidget(), Qt::Key_Left);
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(Main->close());
    EXPECT_EQ(Asked, QStringList(4, question));
    Main->show();
    const std::string saved = ProgramFolder() + "/Sessions/saved.hti";
    std::filesystem::remove(saved); // an earlier run must not make the dialog ask
    Answer("comYes", [&] {
        Meet([&](QWidget* window) {
            auto& dialog = dynamic_cast<QFileDialog&>(*window);
            dialog.selectFile(QString::fromStdString(saved));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    });
    Trigger("labExit");
    EXPECT_FALSE(Main->isVisible());
    EXPECT_EQ(SessionUnsaved, Off);
    EXPECT_EQ(std::filesystem::file_size(saved), std::filesystem::file_size(Demo()));
    EXPECT_TRUE(Main->close()); // nothing to ask
}

TEST_F(FrmMain, AFileThatCannotBeOpenedIsNamed) {
    OpenDemo();
    const std::string broken = ProgramFolder() + "/Sessions/broken.hti";
    std::ofstream(broken) << "no session\n";
    const std::string gone = ProgramFolder() + "/Sessions/gone.hti";
    Meet([](QWidget* window) {
        EXPECT_EQ(window->accessibleName().toStdString(), LanguageText(TextSignWarning));
        EXPECT_TRUE(window->accessibleDescription().contains("gone.hti"));
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    });
    OpenNamedSessionFromMenu(gone);
    EXPECT_EQ(SessionSeconds, 300);
    Answer("comOK");
    OpenNamedSessionFromMenu(broken);
    EXPECT_EQ(SessionSeconds, 0);
    ASSERT_EQ(Asked.size(), 2);
    EXPECT_TRUE(Asked[0].contains("gone.hti") && Asked[0].contains("53")) << Asked[0].toStdString();
    EXPECT_TRUE(Asked[1].contains("broken.hti")) << Asked[1].toStdString();
    Main->Mirror();
    EXPECT_FALSE(Find<QAction>("labSaveSession")->isEnabled());
}

TEST_F(FrmMain, ChoicesOfTheViewMenuShowAtOnce) {
    OpenDemo();
    QTest::keyClick(Main.get(), Qt::Key_End);
    const auto backOf = [this](const char* name) {
        const QImage picture = Find(name)->grab().toImage();
        return picture.pixelColor(2, picture.height() - 3).lightness();
    };
    for (const char* name : {"picIA", "picSA", "picGCA", "picHisA", "picHRVA"})
        EXPECT_LT(backOf(name), 60) << name;
    const QImage dark = Main->grab().toImage();
    Trigger("picStyle3");
    EXPECT_EQ(ColourSchemeIndex, 3);
    for (const char* name : {"picIA", "picSA", "picGCA", "picHisA", "picHRVA"})
        EXPECT_GT(backOf(name), 200) << name;
    EXPECT_NE(Main->grab().toImage().pixel(2, 100), dark.pixel(2, 100)); // the desk between the modules
    const char* actions[] = {"labSolidGraphs", "hsHisStyle8", "labHisAv1", "labBpmCoherence", "labHrvPower"};
    for (const char* action : actions) {
        const QImage before = Main->grab().toImage();
        Trigger(action);
        EXPECT_NE(Main->grab().toImage(), before) << action;
    }
    EXPECT_EQ(HistoryStyle, 8);
}

TEST_F(FrmMain, EntriesOfTheTopBarKeepTheirIconsWhereThereIsNoRoomForWords) {
    OpenDemo();
    Main->resize(1600, 1000);
    const QWidget* scan = Find("labQSMenu0");
    const QWidget* print = Find("labQSMenu1");
    const int wide = print->width();
    Main->resize(800, 600);
    EXPECT_LT(print->width(), wide);
    EXPECT_EQ(print->toolTip().toStdString(), LanguageText(TextPrint));
    EXPECT_GT(scan->x(), Find("picStop")->geometry().right());
    EXPECT_LE(scan->geometry().right(), print->x());
    labQSMenu[0].Caption = "A / B";
    Main->resize(1600, 1000);
    Main->Mirror();
    EXPECT_EQ(print->width(), wide);
    EXPECT_EQ(scan->accessibleName(), "A / B");
    EXPECT_LE(scan->geometry().right(), print->x());
}

TEST_F(FrmMain, AScanOpensItsPageAndFlipsChannels) {
    OpenDemo();
    QWidget* module = Find("picModule5");
    EXPECT_FALSE(module->isVisible());
    QTest::mouseMove(Find("labQSMenu0"));
    EXPECT_EQ(labQSMenu[0].ForeColour, 0xDBE5E5U);
    QTest::mouseClick(Find("labQSMenu0"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([] { return QuickScanResultShown != Off; }, 10000));
    EXPECT_TRUE(module->isVisible());
    const QImage pageA = Find("picQS")->grab().toImage();
    EXPECT_GT(qGray(pageA.pixel(4, 4)), 240); // paper in every scheme
    QTest::mouseClick(Find("labQSMenu0"), Qt::LeftButton);
    EXPECT_EQ(QuickScanFresh, Off);
    const QImage pageB = Find("picQS")->grab().toImage();
    EXPECT_NE(pageA, pageB);
    ToggleSetting(18); // the average rate
    Main->Mirror();
    EXPECT_NE(Find("picQS")->grab().toImage(), pageB);
    OpenDemo();
    EXPECT_EQ(QuickScanResultShown, Off);
}

TEST_F(FrmMain, AModuleThrowsItsShadowOnTheOneBelow) {
    ColourSchemeIndex = 3; // a light one
    Main->ApplyLook();
    const QRect below = Find("picModule2")->geometry();
    const QPoint spot(below.left() + 200, below.top() + 126);
    const auto lightness = [&] { return Main->grab().toImage().pixelColor(spot).lightness(); };
    const int free = lightness();
    picModule[0].Left = static_cast<float>((below.left() + 100) * 15);
    picModule[0].Top = static_cast<float>((below.top() + 20) * 15);
    picModule[0].Width = 200 * 15;
    picModule[0].Height = 100 * 15; // ends 6 pixels above the spot
    ActivePanel = 0;
    PanelOrder = {1, 2, 3, 4, 5, 6, 0};
    Main->Mirror();
    const int active = lightness();
    EXPECT_LT(active, free - 20);
    ActivePanel = -1;
    Main->Mirror();
    EXPECT_GT(lightness(), active); // a flat shadow does not reach as far
    PanelOrder = {0, 1, 2, 3, 4, 5, 6};
    Main->Mirror();
    EXPECT_EQ(lightness(), free); // now it lies below
}

TEST_F(FrmMain, TheRingGoesWithTheKeyboardOnly) {
    OpenDemo();
    Main->activateWindow();
    QWidget* replay = Find("picReplay");
    QWidget* ring = Find("FocusRing");
    replay->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ring->isVisible());
    Find("picStop")->setFocus(Qt::TabFocusReason);
    replay->setFocus(Qt::BacktabFocusReason);
    ASSERT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->geometry(), replay->geometry().adjusted(-4, -4, 4, 4));
    QWidget* mark = Find("picClose3");
    mark->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->geometry().center(), mark->mapTo(Main.get(), mark->rect().center()));
}

TEST_F(FrmMain, WhatAUserActsOnHasAName) {
    OpenDemo();
    for (const QWidget* widget : Main->findChildren<QWidget*>()) {
        const bool acts = widget->focusPolicy() != Qt::NoFocus || widget->hasMouseTracking() ||
                          qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                          qobject_cast<const QMenuBar*>(widget) != nullptr;
        const auto* menu = qobject_cast<const QMenu*>(widget); // a menu is told by its title
        // The toolkit's own parts; the menu without a title holds what the menu bar has no room for.
        const bool toolkitsOwn = widget->objectName().startsWith("qt_") ||
                                 (menu != nullptr && menu->title().isEmpty() &&
                                  qobject_cast<const QMenuBar*>(menu->parentWidget()) != nullptr);
        if (!acts || toolkitsOwn)
            continue;
        const std::string name = widget->objectName().toStdString();
        EXPECT_FALSE(name.empty()) << widget->metaObject()->className()
                                   << (menu != nullptr ? " " + menu->title().toStdString() : "");
        EXPECT_FALSE(widget->accessibleName().isEmpty() && (menu == nullptr || menu->title().isEmpty()))
            << name;
    }
    for (const QMenu* menu : Main->findChildren<QMenu*>()) {
        for (const QAction* action : menu->actions())
            EXPECT_FALSE(!action->isSeparator() && action->menu() == nullptr &&
                         action->objectName().isEmpty())
                << action->text().toStdString();
    }
}

} // namespace
} // namespace pulselark
