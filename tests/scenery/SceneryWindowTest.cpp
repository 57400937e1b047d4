#include "scenery/SceneryWindow.h"

#include "platform/link/SocketTransport.h"
#include "scenery/LitImage.h"
#include "scenery/SceneryMenu.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

namespace pulselark {
namespace {

double Brightness(const QImage& image, const QRect& area) {
    double sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            sum += qGray(image.pixel(x, y));
    }
    return sum / area.width() / area.height();
}

QImage Drawn(Scenery& scenery, const SceneryView& view) {
    QImage image(scenery.Size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    scenery.Draw(painter, view);
    return image;
}

TEST(LitImage, MixesTheLightsAndRepeatsWithoutASeam) {
    LitImage part;
    part.Make({10, 1}, true, [](QImage& image, int end) {
        for (int x = 0; x < 10; ++x)
            image.setPixel(x, 0, qRgb(10 * x, 100 * end, 0));
    });
    part.Relight(0.25);
    EXPECT_GE(part.Outdated(0.5), 0.25);
    QImage row(37, 1, QImage::Format_RGB32);
    for (const int offset : {0, 3, 10, 1234567, -4}) {
        row.fill(Qt::magenta);
        QPainter painter(&row);
        part.DrawScrolled(painter, offset, 0, 37);
        painter.end();
        for (int x = 0; x < 37; ++x)
            ASSERT_EQ(row.pixel(x, 0), qRgb(10 * (((x + offset) % 10 + 10) % 10), 50, 0))
                << offset << ' ' << x;
    }
}

TEST(Sceneries, CoverThePictureScrollAndBrighten) {
    constexpr QSize Size(320, 180);
    ASSERT_GE(SceneryKinds().size(), 3U);
    for (const SceneryKind& kind : SceneryKinds()) {
        SCOPED_TRACE(kind.Name);
        const auto scenery = kind.Make();
        scenery->Resize(Size, 0);
        const QImage dull = Drawn(*scenery, {5, 0});
        const QImage later = Drawn(*scenery, {25, 0});
        EXPECT_NE(dull, later);
        EXPECT_EQ(dull, Drawn(*scenery, {5, 0})) << "a picture follows from what it is given";
        for (const QImage& image : {dull, later}) {
            for (int y = 0; y < Size.height(); ++y) {
                for (int x = 0; x < Size.width(); ++x)
                    ASSERT_NE(image.pixel(x, y), QColor(Qt::magenta).rgb()) << x << ' ' << y;
            }
        }
        EXPECT_TRUE(scenery->Relighting(1));
        QImage radiant;
        for (int i = 0; i < 20; ++i)
            radiant = Drawn(*scenery, {5, 1});
        EXPECT_FALSE(scenery->Relighting(1)) << "the light is reached in a few pictures";
        EXPECT_GT(Brightness(radiant, radiant.rect()), Brightness(dull, dull.rect()) + 4);
        scenery->Resize({41, 300}, 0.5); // tall and narrow
        Drawn(*scenery, {1e6, 0.5});
    }
}

class SceneryWindowTest : public testing::Test {
protected:
    SceneryWindowTest() { ::setenv("XDG_RUNTIME_DIR", Folder.Name().c_str(), 1); }

    // The sender waits for each answer, so it has a thread of its own.
    static bool Send(const std::vector<LinkCommandPayload>& messages) {
        std::atomic<bool> done = false;
        std::atomic<bool> heard = true;
        std::thread sender([&] {
            SocketTransport link;
            for (const auto& message : messages)
                heard = link.Send("WideFeedback", message) && heard;
            done = true;
        });
        while (!done)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        sender.join();
        return heard;
    }
    static bool Send(double command, double p1 = 0, double p2 = 0, double p3 = 0, double p4 = 0) {
        return Send({PackLinkCommand(command, p1, p2, p3, p4)});
    }

    TemporaryFolder Folder;
};

TEST_F(SceneryWindowTest, TakesItsPlaceAndMovesOnlyWhileSomethingMoves) {
    SceneryWindow window;
    ASSERT_TRUE(window.Listen());
    window.show();
    EXPECT_FALSE(window.Animating());
    EXPECT_TRUE(Send(123123, 30, 40, 500, 320));
    EXPECT_EQ(window.geometry(), QRect(30, 40, 500, 320));
    EXPECT_TRUE(Send(230));
    EXPECT_TRUE(window.Animating());
    EXPECT_TRUE(Send(231));
    EXPECT_FALSE(window.Animating());
    EXPECT_TRUE(Send(225));
    EXPECT_TRUE(window.Animating());
    window.hide();
    EXPECT_FALSE(window.Animating()) << "nobody sees it";
    EXPECT_TRUE(Send(240));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(Send(227));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
}

TEST_F(SceneryWindowTest, WaitsForItsPlaceWhereItIsLed) {
    qputenv("PULSELARK_STARTED", "1");
    SceneryWindow window;
    ASSERT_TRUE(window.Listen());
    window.Present();
    qunsetenv("PULSELARK_STARTED");
    EXPECT_FALSE(window.isVisible());
    for (const double command : {240.0, 222.0})
        EXPECT_TRUE(Send(command, 2));
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(Send(123123, 30, 40, 500, 320));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.geometry(), QRect(30, 40, 500, 320));
}

TEST_F(SceneryWindowTest, ASecondOneGivesWay) {
    SceneryWindow first;
    ASSERT_TRUE(first.Listen());
    bool second = true;
    std::atomic<bool> done = false;
    std::thread other([&] {
        PartnerListener listener("WideFeedback", [](LinkBytes) {});
        second = listener.Open() == 0;
        SocketTransport().Send("WideFeedback", PackLinkCommand(CmdKeepScene, 0, 0, 0, 0));
        done = true;
    });
    while (!done)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    other.join();
    EXPECT_FALSE(second);
    EXPECT_TRUE(first.isVisible()) << "it came forward";
}

TEST_F(SceneryWindowTest, TheMenuIsLedByTheKeyboard) {
    SceneryWindow window;
    ASSERT_TRUE(window.Listen());
    window.show();
    QApplication::setActiveWindow(&window);
    auto* menu = window.findChild<SceneryMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(Send(234));
    ASSERT_TRUE(menu->isVisible());
    for (const QAbstractButton* button : menu->findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(window.accessibleDescription(), SceneryKinds()[1].Name);
    QTest::keyClick(&window, Qt::Key_3);
    EXPECT_EQ(window.accessibleDescription(), SceneryKinds()[2].Name);
    QTest::keyClick(&window, Qt::Key_M);
    EXPECT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
    const QRect usual = window.geometry();
    QTest::keyClick(&window, Qt::Key_F11);
    EXPECT_TRUE(window.isFullScreen());
    EXPECT_TRUE(Send(241)) << "the settings open";
    EXPECT_FALSE(window.isFullScreen());
    EXPECT_EQ(window.geometry(), usual);
    QTest::keyClick(&window, Qt::Key_F11);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isFullScreen());
    EXPECT_EQ(window.geometry(), usual);
}

} // namespace
} // namespace pulselark

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_SCALE_FACTOR", "1", 1);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
