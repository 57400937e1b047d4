#include "persistence/LanguagePack.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
#include "support/SessionTest.h"
#include "workspace/LanguageItems.h"
#include "workspace/SideWindowsTest.h"
#include "workspace/frmLanguage.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QToolButton>

#include <set>

namespace pulselark {
namespace {

class LanguageEditor : public SessionTest {
protected:
    int Changes = 0;
    frmLanguage Editor{nullptr, [this] { ++Changes; }};

    QLineEdit& Edit() { return Named<QLineEdit>(Editor, "tbEdit"); }
    QListView& Ref() { return Named<QListView>(Editor, "listItemsRef"); }
    QListView& Ed() { return Named<QListView>(Editor, "listItemsED"); }
    QString Words(const char* label) { return Named<QLabel>(Editor, label).text(); }
    void ChooseRow(QListView& list, int row) { list.setCurrentIndex(list.model()->index(row, 0)); }
    void ChooseLanguage(const char* name, int language) {
        auto& list = Named<QComboBox>(Editor, name);
        list.setCurrentIndex(language);
        emit list.activated(language);
    }
};

TEST_F(LanguageEditor, ShowsTheSameItemOfTwoLanguages) {
    LanguageTable(2, 200) = "Rejouer";
    ChooseLanguage("listEdLang", 2);
    EXPECT_EQ(Words("labEdition"), "French");
    EXPECT_EQ(Ed().model()->rowCount(), 501);
    ChooseRow(Ref(), 200);
    EXPECT_EQ(Ed().currentIndex().row(), 200);
    EXPECT_EQ(Edit().text(), "Rejouer");
    EXPECT_EQ(Words("labEditor"), "<454>200");
    ChooseRow(Ed(), 201);
    EXPECT_EQ(Ref().currentIndex().row(), 201);
    EXPECT_EQ(Ref().currentIndex().data().toString(), "<201>");
    EXPECT_EQ(Edit().text(), "");
    ChooseLanguage("listEdLang", 17);
    EXPECT_EQ(Words("labEdition"), "<457>");
    LanguageIndex = 2;
    Click(Editor, "comCurrent");
    EXPECT_EQ(Words("labReference"), "French");
    EXPECT_EQ(Ref().model()->index(200, 0).data().toString(), "Rejouer");
    Click(Editor, "comDefault");
    EXPECT_EQ(Words("labReference"), "English");
}

TEST_F(LanguageEditor, TheListsScrollInStep) {
    Editor.show();
    QApplication::processEvents();
    ASSERT_GT(Ref().verticalScrollBar()->maximum(), 300);
    Ref().verticalScrollBar()->setValue(300);
    EXPECT_EQ(Ed().verticalScrollBar()->value(), 300);
    Ed().verticalScrollBar()->setValue(7);
    EXPECT_EQ(Ref().verticalScrollBar()->value(), 7);
}

TEST_F(LanguageEditor, AppliesATextAndGoesOn) {
    ChooseLanguage("listEdLang", 3);
    ChooseRow(Ed(), 230);
    Edit().setText("Cancel");
    Named<QToolButton>(Editor, "labChar0").click();
    EXPECT_EQ(Edit().text(), QString("Cancel") + SpecialCharacters(3).left(1));
    Edit().setText("Cancelar");
    Click(Editor, "comApply");
    EXPECT_EQ(LanguageTable(3, 230), "Cancelar");
    EXPECT_EQ(Ed().model()->index(230, 0).data().toString(), "Cancelar");
    EXPECT_EQ(Ed().currentIndex().row(), 231);
    EXPECT_EQ(Ref().currentIndex().row(), 231);
    EXPECT_FALSE(Words("labHint").isEmpty()); // the edit is not saved yet
    ChooseRow(Ed(), 500);
    Edit().setText("last");
    Press(Edit(), Qt::Key_Return);
    EXPECT_EQ(LanguageTable(3, 500), "last");
    EXPECT_EQ(Ed().currentIndex().row(), 500);
    EXPECT_TRUE(Outside.Disk.Content.empty());
}

TEST_F(LanguageEditor, RefusesQuotesAndSectionMarkers) {
    static_cast<void>(LanguagePackText()); // sets the markers
    ChooseRow(Ed(), 200);
    Edit().clear();
    for (const char* key : {"a", "\"", "b"})
        Press(Edit(), 0, key);
    EXPECT_EQ(Edit().text(), "ab");
    Edit().setText("--- mine");
    Click(Editor, "comApply"); // it would be a marker for good
    EXPECT_EQ(LanguageTable(1, 200), "");
    for (const int marker : {1, 14, 300}) {
        const std::string before = LanguageTable(1, marker);
        ChooseRow(Ed(), marker);
        EXPECT_TRUE(Edit().isReadOnly()) << marker;
        EXPECT_FALSE(Named<QPushButton>(Editor, "comApply").isEnabled());
        Named<QToolButton>(Editor, "labChar0").click();
        Press(Edit(), Qt::Key_Return);
        EXPECT_EQ(LanguageTable(1, marker), before);
    }
    ChooseRow(Ed(), 2);
    EXPECT_FALSE(Edit().isReadOnly());
}

TEST_F(LanguageEditor, GoesToWhatIsStillEmpty) {
    for (int item = 0; item < LanguageItems; ++item)
        LanguageTable(1, item) = "x";
    LanguageTable(1, 40) = LanguageTable(1, 300) = LanguageTable(1, 60) = "";
    LanguageTable(0, 60) = "";           // an item that no language has
    LanguageTable(0, 300) = "--- R ---"; // a marker
    LanguageTable(1, 450) = "";
    ChooseRow(Ed(), 40);
    Click(Editor, "comGo");
    EXPECT_EQ(Ed().currentIndex().row(), 450);
    Click(Editor, "comGo");
    EXPECT_EQ(Ed().currentIndex().row(), 40); // round the end
    LanguageTable(1, 450) = LanguageTable(1, 40) = "x";
    Click(Editor, "comGo");
    EXPECT_EQ(Ed().currentIndex().row(), 40);
}

TEST_F(LanguageEditor, SavesThePackOrTellsWhyNot) {
    ChooseLanguage("listEdLang", 1);
    ChooseRow(Ed(), 200);
    Edit().setText("Abspielen");
    Click(Editor, "comApply");
    Outside.Disk.WriteFailure = 61;
    Click(Editor, "comSave");
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_TRUE(Outside.Boxes.Shown[0].Text.starts_with("<163>_1 61\n\n<288>"))
        << Outside.Boxes.Shown[0].Text;
    EXPECT_FALSE(Words("labHint").isEmpty());
    Outside.Disk.WriteFailure = 0;
    Click(Editor, "comSave");
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    LanguageTable.Clear();
    ASSERT_EQ(ReadLanguageText(Outside.Disk.Content["config/langpack.oml"]).Number, 0);
    EXPECT_EQ(LanguageTable(1, 200), "Abspielen");
    EXPECT_EQ(labStatus.Caption, Words("labHint").toStdString());
}

TEST_F(LanguageEditor, BringsALanguageIntoUse) {
    LanguageTable(1, 462) = "Speichern";
    ChooseLanguage("listEdLang", 1);
    EXPECT_EQ(Named<QPushButton>(Editor, "comSave").text(), "<462>");
    Click(Editor, "comApplyEdition");
    EXPECT_EQ(LanguageIndex, 1);
    EXPECT_EQ(Changes, 1);
    EXPECT_EQ(Named<QPushButton>(Editor, "comSave").text(), "Speichern");
    EXPECT_EQ(Named<QPushButton>(Editor, "comClose").text(), "<231>"); // as English has it
}

TEST_F(LanguageEditor, IsOpenWhileItIsShown) {
    EXPECT_EQ(LanguageEditorOpen, Off);
    Editor.show();
    EXPECT_EQ(LanguageEditorOpen, On);
    Press(Editor, Qt::Key_Escape);
    EXPECT_FALSE(Editor.isVisible());
    EXPECT_EQ(LanguageEditorOpen, Off);
    Editor.show();
    Click(Editor, "comClose");
    EXPECT_EQ(LanguageEditorOpen, Off);
    {
        frmLanguage other(nullptr, nullptr);
        other.show();
        EXPECT_EQ(LanguageEditorOpen, On);
    }
    EXPECT_EQ(LanguageEditorOpen, Off);
}

TEST(LanguageCharacters, AreBeyondAsciiAndNeverTwice) {
    for (int language = 0; language < LanguageCount; ++language) {
        const QString all = SpecialCharacters(language);
        EXPECT_EQ(std::set<QChar>(all.begin(), all.end()).size(), static_cast<std::size_t>(all.size()))
            << language;
        for (const QChar each : all)
            EXPECT_GT(each.unicode(), 0x7E) << language;
    }
}

} // namespace
} // namespace pulselark
