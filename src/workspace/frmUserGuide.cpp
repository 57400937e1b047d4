#include "workspace/frmUserGuide.h"

#include "platform/system/FindProgramFolder.h"
#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>

namespace pulselark {

namespace {

constexpr const char* FirstPage = "index.html";

// A menu's entry ends in dots that a title does not have.
QString WithoutDots(QString text) {
    return text.remove(QString::fromUtf8("…"));
}

} // namespace

QString GuideFolder() {
    const QDir program(QString::fromStdString(FolderOfProgram()));
    for (const char* place : {"guide", "../share/pulselark/guide"}) {
        const QDir folder(program.filePath(place));
        if (folder.exists(FirstPage))
            return folder.absolutePath();
    }
    return {};
}

frmUserGuide::frmUserGuide(QWidget* owner, const QString& folder) : QDialog(owner), folder_(folder) {
    setObjectName("frmUserGuide");
    setStyleSheet(SideWindowStyle());
    setFont(TextFont(13));
    Build();
    LayOut();
    Connect();
    Retranslate();
    FocusRing::Of(this).WatchSideWindow();
    resize(RoomFor(*this, QSize(960, 800)));
    ShowContents();
}

void frmUserGuide::Build() {
    page_ = new QTextBrowser(this);
    page_->setObjectName("tbGuide");
    page_->setFont(TextFont(13));
    page_->setOpenExternalLinks(false);
    page_->document()->setDocumentMargin(24);
    page_->setSearchPaths({folder_});
    back_ = NewSideButton("comBack", this);
    forward_ = NewSideButton("comForward", this);
    contents_ = NewSideButton("comContents", this);
    words_ = new QLineEdit(this);
    words_->setObjectName("tbSearch");
    words_->setClearButtonEnabled(true);
    search_ = NewSideButton("comSearch", this);
    found_ = new QLabel(this);
    found_->setObjectName("labFound");
    found_->setProperty("hint", true);
    close_ = NewSideButton("comClose", this);
    MakeMainButton(close_);
}

void frmUserGuide::LayOut() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(8);
    for (QPushButton* button : {back_, forward_, contents_})
        bar->addWidget(button);
    bar->addStretch(1);
    bar->addWidget(found_);
    words_->setMinimumWidth(180);
    bar->addWidget(words_, 1);
    bar->addWidget(search_);
    auto* foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(close_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 20);
    layout->setSpacing(12);
    layout->addLayout(bar);
    layout->addWidget(page_, 1);
    layout->addLayout(foot);
}

void frmUserGuide::Connect() {
    connect(back_, &QPushButton::clicked, page_, &QTextBrowser::backward);
    connect(forward_, &QPushButton::clicked, page_, &QTextBrowser::forward);
    connect(contents_, &QPushButton::clicked, this, &frmUserGuide::ShowContents);
    connect(page_, &QTextBrowser::historyChanged, this, &frmUserGuide::ShowPlace);
    connect(search_, &QPushButton::clicked, this, [this] { Search(false); });
    connect(words_, &QLineEdit::returnPressed, this, [this] { Search(false); });
    connect(words_, &QLineEdit::textChanged, found_, &QLabel::clear);
    connect(close_, &QPushButton::clicked, this, &QWidget::hide);
    const auto onKey = [this](const QKeySequence& keys, auto routine) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, routine);
    };
    onKey(QKeySequence::Find, [this] {
        words_->setFocus(Qt::ShortcutFocusReason);
        words_->selectAll();
    });
    onKey(Qt::Key_F3, [this] { Search(false); });
    onKey(Qt::SHIFT | Qt::Key_F3, [this] { Search(true); });
    onKey(Qt::ALT | Qt::Key_Left, [this] { page_->backward(); });
    onKey(Qt::ALT | Qt::Key_Right, [this] { page_->forward(); });
    onKey(Qt::ALT | Qt::Key_Home, [this] { ShowContents(); });
}

void frmUserGuide::Retranslate() {
    setWindowTitle(WithoutDots(TextOr(TextMenuUserGuide, "User guide")));
    setAccessibleName(windowTitle());
    page_->setAccessibleName(windowTitle());
    SetCaption(back_, WordsOf(SideTextBack));
    SetCaption(forward_, WordsOf(SideTextForward));
    SetCaption(contents_, WordsOf(SideTextContents));
    words_->setPlaceholderText(WordsOf(SideTextSearch));
    words_->setAccessibleName(WordsOf(SideTextSearch));
    words_->setToolTip("Ctrl+F, F3");
    SetCaption(search_, TextOr(TextEditorGo, "Go"));
    back_->setToolTip("Alt+←");
    forward_->setToolTip("Alt+→");
    contents_->setToolTip("Alt+Home");
    SetCaption(close_, TextOr(TextClose, "Close"));
}

void frmUserGuide::ShowContents() {
    const QFileInfo first(QDir(folder_), FirstPage);
    if (folder_.isEmpty() || !first.exists()) {
        page_->setPlainText(TextOr(TextFailureFileNotFound, "The file was not found.") + "\n" + FirstPage);
        ShowPlace();
        return;
    }
    page_->setSource(QUrl::fromLocalFile(first.absoluteFilePath()));
    ShowPlace();
}

void frmUserGuide::ShowPlace() {
    back_->setEnabled(page_->isBackwardAvailable());
    forward_->setEnabled(page_->isForwardAvailable());
    found_->clear();
}

void frmUserGuide::Search(bool backward) {
    const QString words = words_->text();
    found_->clear();
    if (words.isEmpty())
        return;
    const auto direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (page_->find(words, direction))
        return;
    const QTextCursor before = page_->textCursor();
    page_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (page_->find(words, direction))
        return;
    page_->setTextCursor(before);
    found_->setText(WordsOf(SideTextNotFound));
    found_->setAccessibleName(found_->text());
}

} // namespace pulselark
