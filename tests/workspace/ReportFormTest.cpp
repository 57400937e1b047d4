#include "session/MainBuffers.h"
#include "workspace/FormControls.h"
#include "workspace/ReportParts.h"
#include "workspace/SideWindowsTest.h"
#include "workspace/WindowTest.h"
#include "workspace/frmReport.h"

#include <QAction>
#include <QLabel>
#include <QTest>

namespace pulselark {
namespace {

using ReportForm = WindowTest;

// The stored document is locked, is unlocked, written in by keyboard alone, and locked again.
TEST_F(ReportForm, FollowsTheDocumentAndTheKeyboard) {
    OpenSessionFile(Demo());
    OpenWindow(1280, 800);
    Named<QAction>(*Main, "labSessionDocument").trigger();
    auto& form = Named<frmReport>(*Main, "frmReport");
    ASSERT_TRUE(form.isVisible());
    EXPECT_EQ(form.windowFlags() & Qt::WindowType_Mask, Qt::Tool); // stays over its owner
    const auto box = [&](int i) -> ReportBox& { return Named<ReportBox>(form, QString("tbSD%1").arg(i)); };
    const auto usable = [&](const char* name) { return Named<QAbstractButton>(form, name).isEnabled(); };

    EXPECT_TRUE(box(0).text().startsWith("Demo"));
    EXPECT_TRUE(box(0).isReadOnly());
    EXPECT_TRUE(Named<QWidget>(form, "imLockDoc").isVisible());
    EXPECT_TRUE(usable("labCopyDoc"));
    EXPECT_FALSE(usable("labSetDT") || usable("labClrDoc") || usable("labPasteDoc") || usable("labMF1"));
    EXPECT_TRUE(Named<QLabel>(form, "labFN").toolTip().endsWith("demo.hti"));

    ReportFromFile = Off; // nobody is there to answer the question
    Named<QAbstractButton>(form, "labLockDoc").click();
    EXPECT_FALSE(Named<QWidget>(form, "imLockDoc").isVisible());
    EXPECT_FALSE(box(1).isReadOnly());
    box(0).setFocus();
    QTest::keyClick(&form, Qt::Key_Tab);
    QTest::keyClicks(form.focusWidget(), "Ada");
    EXPECT_EQ(tbSD[1].Text, "Ada");
    for (int i = 0; i < 3; ++i) // code, two symbols
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(form.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(imMF[1].Visible);
    QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(form.focusWidget(), "s");
    EXPECT_FALSE(box(3).text().contains('s'));
    EXPECT_EQ(box(4).text().size(), 5); // HH:MM
    EXPECT_EQ(SessionUnsaved, On);

    for (const QWidget* part : form.findChildren<QWidget*>()) {
        const bool named = part->focusPolicy() == Qt::NoFocus || !part->accessibleName().isEmpty();
        EXPECT_TRUE(named) << part->objectName().toStdString();
    }
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    SessionUnsaved = Off;
}

} // namespace
} // namespace pulselark
