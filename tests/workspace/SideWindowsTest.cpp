#include "workspace/SideWindowsTest.h"

#include "images/PictureFiles.h"
#include "platform/system/ProcessPriority.h"
#include "platform/system/SystemFiles.h"
#include "session/LanguageTable.h"
#include "support/SessionTest.h"
#include "workspace/frmAbout_new.h"
#include "workspace/frmODS.h"
#include "workspace/frmUserGuide.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTextBrowser>

#include <cerrno>
#include <set>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pulselark {
namespace {

// ---- Splash and about box ----

class About : public SessionTest {
protected:
    frmAbout_new Window{nullptr, "5.0.0"};
    int Done = 0;
    void Splash(SplashPace pace) {
        Window.ShowAsSplash(pace, [this] { ++Done; });
    }
};

TEST_F(About, FadesInWaitsFadesOutAndCallsBackOnce) {
    Splash({});
    EXPECT_TRUE(Window.isVisible());
    EXPECT_EQ(Window.Alpha(), 0);
    EXPECT_EQ(Named<QTimer>(Window, "timUp").interval(), 100);
    EXPECT_EQ(Named<QTimer>(Window, "timWait").interval(), 1500);
    int before = -1;
    while (Named<QTimer>(Window, "timUp").isActive()) {
        ASSERT_GT(Window.Alpha(), before);
        before = Window.Alpha();
        Ring(Window, "timUp");
    }
    EXPECT_EQ(Window.Alpha(), 255);
    Ring(Window, "timWait");
    EXPECT_EQ(Done, 0);
    for (int i = 0; i < 300 && Done == 0; ++i)
        Ring(Window, "timDown");
    EXPECT_EQ(Done, 1);
    EXPECT_FALSE(Window.isVisible());
    for (const char* timer : {"timUp", "timWait", "timDown"}) // at rest no timer runs
        EXPECT_FALSE(Named<QTimer>(Window, timer).isActive()) << timer;
}

TEST_F(About, WithoutWaitingOrMotionCallsBackAtOnce) {
    Splash({.SkipWaiting = true});
    EXPECT_EQ(Done, 1);
    Splash({.ReducedMotion = true});
    EXPECT_EQ(Done, 2);
    EXPECT_FALSE(Window.isVisible());
    EXPECT_FALSE(Named<QTimer>(Window, "timUp").isActive());
}

TEST_F(About, ASplashThatIsClosedDoesNotHoldUpTheStart) {
    Splash({});
    Press(Window, Qt::Key_Escape); // a splash is not the user's to close by key
    EXPECT_TRUE(Window.isVisible());
    Window.close();
    EXPECT_EQ(Done, 1);
    EXPECT_FALSE(Named<QTimer>(Window, "timUp").isActive());
}

TEST_F(About, TheAboutBoxStaysUntilItIsDismissed) {
    LanguageTable(0, 114) = "Version %1";
    for (const int way : {0, 1, 2}) {
        Window.ShowFromMenu();
        EXPECT_EQ(Window.AboutFromMenu, On);
        EXPECT_TRUE(Window.isVisible());
        EXPECT_EQ(Window.Alpha(), 255);
        EXPECT_TRUE(Window.accessibleDescription().startsWith("Version 5.0.0\nGPL-3.0-or-later"));
        QMouseEvent click(QEvent::MouseButtonPress, QPointF(100, 100), QPointF(100, 100), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        if (way == 0)
            Press(Window, Qt::Key_Escape);
        else if (way == 1)
            QApplication::sendEvent(&Window, &click);
        else
            Click(Window, "comClose");
        EXPECT_FALSE(Window.isVisible()) << way;
    }
    EXPECT_EQ(Done, 0);
}

// ---- User guide ----

const QString Guide = PULSELARK_SOURCE "/docs/guide";

QString PageText(const QString& name) {
    std::string bytes;
    EXPECT_EQ(SystemFiles().ReadWhole((Guide + "/" + name).toStdString(), bytes), 0) << name.toStdString();
    return QString::fromStdString(bytes);
}

// Every link leads to a page that is there, every page is reached from the contents, and none needs a
// network.
TEST(GuidePages, HangTogether) {
    std::set<QString> reached{"index.html"};
    std::vector<QString> open{"index.html"};
    const QRegularExpression link("(?:href|src)=\"([^\"#]+)");
    while (!open.empty()) {
        const QString page = open.back();
        open.pop_back();
        const QString text = PageText(page);
        EXPECT_FALSE(text.contains("://")) << page.toStdString();
        for (auto found = link.globalMatch(text); found.hasNext();) {
            const QString target = found.next().captured(1);
            EXPECT_TRUE(QFile::exists(Guide + "/" + target)) << target.toStdString();
            if (target.endsWith(".html") && reached.insert(target).second)
                open.push_back(target);
        }
    }
    const QStringList pages = QDir(Guide).entryList({"*.html"});
    EXPECT_EQ(reached, std::set<QString>(pages.begin(), pages.end()));
    EXPECT_GE(pages.size(), 5);
}

class UserGuide : public SessionTest {
protected:
    frmUserGuide Window{nullptr, Guide};
    QTextBrowser& Page() { return Named<QTextBrowser>(Window, "tbGuide"); }
    bool Usable(const char* name) { return Named<QPushButton>(Window, name).isEnabled(); }
    QString Search(const QString& words) {
        Named<QLineEdit>(Window, "tbSearch").setText(words);
        Click(Window, "comSearch");
        return Page().textCursor().selectedText();
    }
};

TEST_F(UserGuide, GoesForthAndBack) {
    EXPECT_EQ(Page().source().fileName(), "index.html");
    EXPECT_FALSE(Usable("comBack"));
    Page().setSource(QUrl("panels.html"));
    EXPECT_TRUE(Page().toPlainText().contains("BPMc"));
    EXPECT_TRUE(Usable("comBack"));
    Click(Window, "comBack");
    EXPECT_EQ(Page().source().fileName(), "index.html");
    Click(Window, "comForward");
    EXPECT_EQ(Page().source().fileName(), "panels.html");
    EXPECT_FALSE(Usable("comForward"));
    Click(Window, "comContents");
    EXPECT_EQ(Page().source().fileName(), "index.html");
}

TEST_F(UserGuide, FindsWordsRoundThePagesEnd) {
    Page().setSource(QUrl("panels.html"));
    EXPECT_EQ(Search("HEART RATE"), "heart rate");
    const int first = Page().textCursor().position();
    EXPECT_FALSE(Search("heart rate").isEmpty());
    EXPECT_NE(Page().textCursor().position(), first);
    for (int i = 0; i < 100 && Page().textCursor().position() != first; ++i)
        Search("heart rate");
    EXPECT_EQ(Page().textCursor().position(), first);
    Search("no such words");
    EXPECT_EQ(Page().textCursor().position(), first); // it stays where it was
    EXPECT_FALSE(Named<QLabel>(Window, "labFound").text().isEmpty());
}

TEST_F(UserGuide, WithoutPagesSaysSo) {
    frmUserGuide lost(nullptr, "");
    EXPECT_TRUE(Named<QTextBrowser>(lost, "tbGuide").toPlainText().startsWith("<285>"));
    Window.show();
    Press(Window, Qt::Key_Escape);
    EXPECT_FALSE(Window.isVisible());
}

// ---- Picture window ----

class PictureWindow : public SessionTest {
protected:
    PictureWindow() {
        Picture.fill(QColor(20, 29, 80));
        Picture.setPixelColor(3, 2, Qt::transparent);
        Window.ShowPicture(QPixmap::fromImage(Picture), "History");
    }
    QImage Read(const char* name, const char* format) {
        const auto bytes = QByteArray::fromStdString(Outside.Disk.Content.at(name));
        return QImage::fromData(bytes, format);
    }

    QImage Picture{8, 6, QImage::Format_ARGB32};
    frmODS Window{nullptr};
};

TEST_F(PictureWindow, SavesInTheFormatOfTheName) {
    Window.ChooseName = [] { return QString("a.PNG"); };
    Click(Window, "comSave");
    EXPECT_EQ(Read("a.PNG", "png").convertToFormat(QImage::Format_ARGB32).pixelColor(3, 2).alpha(), 0);
    EXPECT_EQ(Read("a.PNG", "png").pixelColor(0, 0), QColor(20, 29, 80));
    ASSERT_EQ(SavePictureAs(Picture, "b.jpeg"), 0);
    EXPECT_EQ(Read("b.jpeg", "jpeg").size(), QSize(8, 6));
    ASSERT_EQ(SavePictureAs(Picture, "c.bmp"), 0);
    EXPECT_EQ(Read("c.bmp", "bmp").pixelColor(3, 2), QColor(Qt::white)); // not black
    for (const char* name : {"d.gif", "e", "f.png.txt", ""})
        EXPECT_EQ(SavePictureAs(Picture, name), 52) << name;
    EXPECT_EQ(Outside.Disk.Content.size(), 3U);
    EXPECT_TRUE(PictureFilters().constFirst().contains("*.png"));
}

TEST_F(PictureWindow, TellsAFailureAndTakesARefusal) {
    Window.ChooseName = [] { return QString(); };
    Click(Window, "comSave");
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    Outside.Disk.Content["a.png"] = "old";
    Outside.Disk.WriteFailure = 61;
    Window.ChooseName = [] { return QString("a.png"); };
    Click(Window, "comSave");
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_TRUE(Outside.Boxes.Shown[0].Text.starts_with("<163>_1 61"));
    EXPECT_EQ(Outside.Disk.Content["a.png"], "old");
}

TEST_F(PictureWindow, CopiesAndCloses) {
    Click(Window, "comCopy");
    EXPECT_EQ(QApplication::clipboard()->image().pixelColor(0, 0), QColor(20, 29, 80));
    Press(Window, Qt::Key_Escape);
    EXPECT_FALSE(Window.isVisible());
}

// ---- Process priority ----

// In a process of its own, since a priority once lowered may not come back. Returns its exit code.
template <class Routine>
int InChild(Routine routine) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(routine());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Priority, ComesBackToWhereItStarted) {
    EXPECT_EQ(InChild([] {
                  if (::setpriority(PRIO_PROCESS, 0, 3) != 0)
                      return 1;
                  if (SetProcessPriority(false) != 0 || ::getpriority(PRIO_PROCESS, 0) != 3)
                      return 2;
                  const int refused = SetProcessPriority(true);
                  const int nice = ::getpriority(PRIO_PROCESS, 0);
                  if (refused == 0 ? nice != -5 : nice != 3)
                      return 3;
                  return SetProcessPriority(false) == 0 && ::getpriority(PRIO_PROCESS, 0) == 3 ? 0 : 4;
              }),
              0);
}

TEST(Priority, ARefusalIsToldAndChangesNothing) {
    EXPECT_EQ(InChild([] {
                  const rlimit none{0, 0};
                  if (::setrlimit(RLIMIT_NICE, &none) != 0 || (::getuid() == 0 && ::setuid(65534) != 0))
                      return 1;
                  const int before = ::getpriority(PRIO_PROCESS, 0);
                  const int refused = SetProcessPriority(true);
                  if (refused != EACCES && refused != EPERM)
                      return 2;
                  return ::getpriority(PRIO_PROCESS, 0) == before ? 0 : 3;
              }),
              0);
}

} // namespace
} // namespace pulselark
