#include "analysis/ColourSchemes.h"
#include "platform/qt/QtColour.h"
#include "session/Controls.h"
#include "session/LanguageTable.h"
#include "session/ModulePanels.h"
#include "session/Settings.h"
#include "workspace/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

namespace pulselark {
namespace {

constexpr double Pixel = 15;

class ModuleDesks : public WindowTest {
protected:
    void Resize(int width, int height) {
        Main->resize(width, height);
        QApplication::processEvents();
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(Main.get(), &event);
    }
};

bool HasColour(const QImage& picture, const QColor& colour) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

// The share of the work area that a panel takes must not grow with each size that the window goes through.
TEST_F(ModuleDesks, HiddenPanelsKeepTheirShareThroughEverySize) {
    OpenWindow(1280, 800);
    const auto before = picModule;
    for (const int width : {1600, 1000, 1500, 1280})
        Resize(width, width * 5 / 8);
    for (std::size_t i = 0; i < picModule.size(); ++i) {
        EXPECT_NEAR(picModule[i].Width, before[i].Width, Pixel) << i;
        EXPECT_NEAR(picModule[i].Height, before[i].Height, Pixel) << i;
        EXPECT_LT(picModule[i].Left + picModule[i].Width, 1280 * Pixel) << i;
    }
}

TEST_F(ModuleDesks, ALayoutOfALargerWindowComesToThisOneInProportion) {
    OpenWindow(1200, 750);
    frmScale = {0, 0, 2400 * Pixel, 1500 * Pixel, On};
    picModule[2] = {1200 * Pixel, 60 * Pixel, 1100 * Pixel, 700 * Pixel, On};
    LayoutLoaded = true;
    Main->Mirror();
    EXPECT_NEAR(picModule[2].Left, 600 * Pixel, 3 * Pixel);
    EXPECT_NEAR(picModule[2].Width, 550 * Pixel, 3 * Pixel);
    EXPECT_NEAR(picModule[2].Height, 350 * Pixel, 12 * Pixel); // the bars take their room
    const PanelPlace fitted = picModule[2];
    Main->Mirror(); // and only once
    EXPECT_EQ(picModule[2], fitted);
}

TEST_F(ModuleDesks, APanelReachesTheRightEndOfAWideWindow) {
    OpenWindow(3400, 1400);
    const double wanted = 2800 * Pixel;
    PressPanel(0, 0, 0);
    DragPanel(0, 1, wanted - static_cast<double>(picModule[0].Left), 0);
    EndDragPanel(0);
    EXPECT_NEAR(picModule[0].Left, wanted, Pixel);
}

TEST_F(ModuleDesks, WithoutASessionTheHistoryKeepsItsScalesAtEverySize) {
    OpenWindow(1280, 800);
    Resize(1400, 900);
    const auto* panel = Main->findChild<QWidget*>("picHisA");
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(HasColour(const_cast<QWidget*>(panel)->grab().toImage(), ToQColor(CurrentScheme().Grid)));
}

TEST_F(ModuleDesks, TheKeyboardsPanelHasItsMenuAndItsPicture) {
    OpenWindow(1280, 800);
    Press(Qt::Key_F6);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(Main.get(), &event);
    auto* entry = Main->findChild<QAction*>("labPanelSnapshot");
    ASSERT_NE(entry, nullptr);
    entry->trigger();
    const auto* pictures = Main->findChild<QWidget*>("frmODS");
    ASSERT_NE(pictures, nullptr);
    EXPECT_TRUE(pictures->isVisible());
    EXPECT_TRUE(pictures->windowTitle().contains(
        QString::fromStdString(LanguageText(TextModuleEcgInput + ActivePanel))));
}

// Else the space bar would press a button as soon as the desktop hands the window its keys.
TEST_F(ModuleDesks, AWindowThatIsActivatedKeepsTheKeysItself) {
    OpenWindow(1280, 800);
    Main->activateWindow();
    QApplication::processEvents();
    EXPECT_EQ(Main->focusWidget(), Main.get());
}

TEST_F(ModuleDesks, EveryMenuHasALetterOfItsOwnInEveryLanguage) {
    OpenWindow(1280, 800);
    const auto* bar = Main->findChild<QMenuBar*>();
    ASSERT_NE(bar, nullptr);
    for (LanguageIndex = 0; LanguageIndex < 8; ++LanguageIndex) {
        Main->ApplyLanguage();
        QString letters;
        for (const QAction* menu : bar->actions()) {
            const auto place = menu->text().indexOf('&');
            ASSERT_GE(place, 0) << menu->text().toStdString();
            const QChar letter = menu->text()[place + 1].toLower();
            EXPECT_FALSE(letters.contains(letter)) << menu->text().toStdString();
            letters += letter;
        }
    }
}

} // namespace
} // namespace pulselark
