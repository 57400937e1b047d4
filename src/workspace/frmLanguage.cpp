#include "workspace/frmLanguage.h"

#include "persistence/FileMessages.h"
#include "persistence/LanguagePack.h"
#include "platform/ProgramFolder.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
#include "workspace/FocusRing.h"
#include "workspace/LanguageItems.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QToolButton>
#include <QValidator>

#include <utility>

namespace pulselark {

Boolean LanguageEditorOpen = Off;

namespace {

constexpr int CharacterSide = 28;
constexpr int CharactersInRow = 32;

// The pack has no way to write a quote character inside a text.
class NoQuote final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& /*position*/) const override {
        return text.contains('"') ? Invalid : Acceptable;
    }
};

QLabel* NewLabel(const char* name, QWidget* parent, int pixels, int weight, bool hint = false) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFont(TextFont(pixels, weight));
    label->setTextFormat(Qt::PlainText);
    label->setProperty("hint", hint);
    return label;
}

QString NameOf(int language) {
    return language < NamedLanguageCount ? QString(LanguageName(language)) : Text(TextEditorNotUsed);
}

// Rows of characters make the lists lower; the item stays in sight.
class ItemList final : public QListView {
public:
    using QListView::QListView;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QListView::resizeEvent(event);
        scrollTo(currentIndex());
    }
};

QListView* NewItemList(const char* name, LanguageItemsModel* model, QWidget* parent) {
    auto* list = new ItemList(parent);
    list->setObjectName(name);
    list->setModel(model);
    list->setItemDelegate(new LanguageItemPainter(list));
    list->setUniformItemSizes(true);
    list->setMouseTracking(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

} // namespace

frmLanguage::frmLanguage(QWidget* owner, std::function<void()> languageChanged)
    : QDialog(owner), languageChanged_(std::move(languageChanged)),
      referenceItems_(new LanguageItemsModel(this)), editionItems_(new LanguageItemsModel(this)) {
    setObjectName("frmLanguage");
    setStyleSheet(SideWindowStyle());
    setFont(TextFont(13));
    Build();
    LayOut();
    Connect();
    ShowReference(reference_);
    ShowEdition(edition_);
    Retranslate();
    FocusRing::Of(this).WatchSideWindow();
    resize(RoomFor(*this, QSize(1040, 780)));
    StepTo(0);
}

// A window that is destroyed while it is shown gets no hide event of its own.
frmLanguage::~frmLanguage() {
    LanguageEditorOpen = Off;
}

void frmLanguage::Build() {
    title_ = NewLabel("Label1", this, 16, 500);
    referenceHead_ = NewLabel("Label2", this, 13, 400, true);
    editionHead_ = NewLabel("Label3", this, 13, 400, true);
    referenceName_ = NewLabel("labReference", this, 14, 500);
    editionName_ = NewLabel("labEdition", this, 14, 500);
    editor_ = NewLabel("labEditor", this, 14, 500);
    packNote_ = NewLabel("Label4", this, 12, 400, true);
    characterNote_ = NewLabel("labICSNotification", this, 12, 400, true);
    hint_ = NewLabel("labHint", this, 12, 500);
    hint_->setMinimumHeight(16);
    for (QLabel* note : {packNote_, characterNote_, hint_})
        note->setWordWrap(true);
    referenceLanguages_ = NewSideList("listRefLang", this);
    editionLanguages_ = NewSideList("listEdLang", this);
    for (QComboBox* list : {referenceLanguages_, editionLanguages_}) {
        FillLanguages(list);
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(10);
    }
    referenceList_ = NewItemList("listItemsRef", referenceItems_, this);
    editionList_ = NewItemList("listItemsED", editionItems_, this);
    edit_ = new QLineEdit(this);
    edit_->setObjectName("tbEdit");
    edit_->setValidator(new NoQuote(edit_));
    characters_ = new QWidget(this);
    default_ = NewSideButton("comDefault", this);
    current_ = NewSideButton("comCurrent", this);
    apply_ = NewSideButton("comApply", this);
    applyEdition_ = NewSideButton("comApplyEdition", this);
    save_ = NewSideButton("comSave", this);
    MakeMainButton(save_);
    close_ = NewSideButton("comClose", this);
    go_ = NewSideButton("comGo", this);
}

void frmLanguage::LayOut() {
    const auto row = [](std::initializer_list<QWidget*> widgets, int stretched) {
        auto* line = new QHBoxLayout;
        line->setSpacing(8);
        int place = 0;
        for (QWidget* widget : widgets)
            line->addWidget(widget, place++ == stretched ? 1 : 0);
        return line;
    };
    auto* columns = new QGridLayout;
    columns->setHorizontalSpacing(16);
    columns->setVerticalSpacing(8);
    columns->addLayout(row({referenceHead_, referenceName_}, 1), 0, 0);
    columns->addLayout(row({editionHead_, editionName_}, 1), 0, 1);
    columns->addLayout(row({referenceLanguages_, default_, current_}, 0), 1, 0);
    columns->addLayout(row({editionLanguages_, go_, applyEdition_}, 0), 1, 1);
    columns->addWidget(referenceList_, 2, 0);
    columns->addWidget(editionList_, 2, 1);
    columns->setColumnStretch(0, 1);
    columns->setColumnStretch(1, 1);

    characterGrid_ = new QGridLayout(characters_);
    characterGrid_->setContentsMargins(0, 0, 0, 0);
    characterGrid_->setSpacing(2);
    characterGrid_->setColumnStretch(CharactersInRow, 1);

    auto* notes = new QVBoxLayout;
    notes->setSpacing(2);
    notes->addWidget(hint_);
    notes->addWidget(packNote_);
    notes->addWidget(characterNote_);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addLayout(notes, 1);
    foot->addWidget(close_, 0, Qt::AlignBottom);
    foot->addWidget(save_, 0, Qt::AlignBottom);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 20);
    layout->setSpacing(8);
    layout->addWidget(title_);
    layout->addLayout(columns, 1);
    layout->addWidget(editor_);
    layout->addLayout(row({edit_, apply_}, 0));
    layout->addWidget(characters_);
    layout->addLayout(foot);
    // The order of the tabulator is the order of reading: the left column, the right one, the editor.
    const std::initializer_list<QWidget*> order{referenceLanguages_,
                                                default_,
                                                current_,
                                                referenceList_,
                                                editionLanguages_,
                                                go_,
                                                applyEdition_,
                                                editionList_,
                                                edit_,
                                                apply_,
                                                close_,
                                                save_};
    for (const auto* widget = order.begin(); widget + 1 != order.end(); ++widget)
        setTabOrder(widget[0], widget[1]);
}

void frmLanguage::Connect() {
    connect(referenceLanguages_, &QComboBox::activated, this, [this](int language) {
        ShowReference(language);
        StepTo(item_);
    });
    connect(editionLanguages_, &QComboBox::activated, this, &frmLanguage::ShowEdition);
    connect(default_, &QPushButton::clicked, this, [this] { ShowReference(0); });
    connect(current_, &QPushButton::clicked, this, [this] { ShowReference(LanguageIndex); });
    for (QListView* list : {referenceList_, editionList_}) {
        connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& now) { StepTo(now.row()); });
    }
    QScrollBar* left = referenceList_->verticalScrollBar();
    QScrollBar* right = editionList_->verticalScrollBar();
    connect(left, &QScrollBar::valueChanged, right, &QScrollBar::setValue);
    connect(right, &QScrollBar::valueChanged, left, &QScrollBar::setValue);
    connect(edit_, &QLineEdit::returnPressed, this, &frmLanguage::Apply);
    connect(edit_, &QLineEdit::inputRejected, this, [this] { ShowHint(WordsOf(SideTextNoQuote)); });
    connect(edit_, &QLineEdit::textEdited, this, [this] { ShowHint(); });
    connect(apply_, &QPushButton::clicked, this, &frmLanguage::Apply);
    connect(applyEdition_, &QPushButton::clicked, this, &frmLanguage::ApplyEdition);
    connect(go_, &QPushButton::clicked, this, &frmLanguage::GoToEmpty);
    connect(save_, &QPushButton::clicked, this, &frmLanguage::Save);
    connect(close_, &QPushButton::clicked, this, &QWidget::hide);
}

void frmLanguage::FillLanguages(QComboBox* list) const {
    const int chosen = list->currentIndex();
    list->clear();
    for (int language = 0; language < LanguageCount; ++language)
        list->addItem(QString("%1  %2").arg(language).arg(NameOf(language)));
    list->setCurrentIndex(chosen);
}

void frmLanguage::Retranslate() {
    setWindowTitle(TextOr(TextLanguageEditor, "Language Editor"));
    setAccessibleName(windowTitle());
    title_->setText(windowTitle());
    referenceHead_->setText(TextOr(TextEditorReference, "Reference:"));
    editionHead_->setText(TextOr(TextEditorEdition, "Edition:"));
    packNote_->setText(Text(TextEditorPackNote));
    characterNote_->setText(Text(TextEditorCharacterNote));
    SetCaption(default_, TextOr(TextEditorDefault, "Show English"));
    SetCaption(current_, TextOr(TextEditorCurrent, "Show language in use"));
    SetCaption(apply_, TextOr(TextEditorApply, "Apply"));
    SetCaption(applyEdition_, TextOr(TextEditorApplyEdition, "Use this language"));
    SetCaption(save_, TextOr(TextEditorSave, "Save"));
    SetCaption(close_, TextOr(TextClose, "Close"));
    SetCaption(go_, TextOr(TextEditorGo, "Go"));
    go_->setToolTip(WordsOf(SideTextNextEmpty));
    go_->setAccessibleDescription(go_->toolTip());
    referenceLanguages_->setAccessibleName(referenceHead_->text());
    editionLanguages_->setAccessibleName(editionHead_->text());
    FillLanguages(referenceLanguages_);
    FillLanguages(editionLanguages_);
    ShowReference(reference_);
    editionName_->setText(NameOf(edition_));
    editionList_->setAccessibleName(editionHead_->text() + " " + editionName_->text());
    edit_->setAccessibleName(TextOr(TextEditor, "Editor:"));
    editor_->setText(TextOr(TextEditorItem, "Editor: Item #") + QString::number(item_));
    BuildCharacters();
    ShowHint();
}

void frmLanguage::ShowReference(int language) {
    reference_ = language;
    referenceLanguages_->setCurrentIndex(language);
    referenceItems_->SetLanguage(language);
    referenceName_->setText(NameOf(language));
    referenceList_->setAccessibleName(referenceHead_->text() + " " + referenceName_->text());
}

void frmLanguage::ShowEdition(int language) {
    edition_ = language;
    editionLanguages_->setCurrentIndex(language);
    editionItems_->SetLanguage(language);
    editionName_->setText(NameOf(language));
    editionList_->setAccessibleName(editionHead_->text() + " " + editionName_->text());
    BuildCharacters();
    ShowItem();
}

void frmLanguage::BuildCharacters() {
    for (QToolButton* old : characters_->findChildren<QToolButton*>())
        delete old;
    const QString style = QString("QToolButton { background: %1; color: %2; border: 1px solid %3;"
                                  " border-radius: 4px; } QToolButton:hover { background: %4; color: white; }"
                                  "QToolButton:focus { border: 2px solid %5; }")
                              .arg(FormColour::Card.name(), FormColour::Ink.name(), FormColour::Rule.name(),
                                   FormColour::Teal.name(), FormColour::Focus.name());
    const QString all = SpecialCharacters(edition_);
    for (int i = 0; i < all.size(); ++i) {
        auto* button = new QToolButton(characters_);
        const QString character = all.mid(i, 1);
        button->setObjectName(QString("labChar%1").arg(i));
        button->setText(character);
        button->setAccessibleName(WordsOf(SideTextCharacters) + " " + character);
        button->setFixedSize(CharacterSide, CharacterSide);
        button->setStyleSheet(style);
        characterGrid_->addWidget(button, i / CharactersInRow, i % CharactersInRow);
        connect(button, &QToolButton::clicked, this, [this, character] {
            if (edit_->isReadOnly())
                return;
            edit_->end(false);
            edit_->insert(character);
        });
    }
}

// Both lists, the edit line and its heading go to an item.
void frmLanguage::StepTo(int item) {
    if (item < 0)
        return; // a list without a current row
    const bool moved = item != item_ || !editionList_->currentIndex().isValid();
    item_ = item;
    for (QListView* list : {referenceList_, editionList_}) {
        if (list->currentIndex().row() != item)
            list->setCurrentIndex(list->model()->index(item, 0));
    }
    editionList_->verticalScrollBar()->setValue(referenceList_->verticalScrollBar()->value());
    if (moved)
        ShowItem();
}

void frmLanguage::ShowItem() {
    const bool marker = IsSectionMarker(edition_, item_);
    editor_->setText(TextOr(TextEditorItem, "Editor: Item #") + QString::number(item_));
    edit_->setText(QString::fromStdString(LanguageTable(edition_, item_)));
    edit_->setReadOnly(marker);
    apply_->setEnabled(!marker);
    ShowHint();
}

// What there is to know about the item or the edits; `passing` is a word about the last action.
void frmLanguage::ShowHint(const QString& passing) {
    QString words = passing;
    if (words.isEmpty() && edit_->isReadOnly())
        words = WordsOf(SideTextMarker);
    if (words.isEmpty() && unsaved_)
        words = WordsOf(SideTextUnsaved);
    hint_->setText(words);
    hint_->setAccessibleName(words);
}

void frmLanguage::Apply() {
    if (edit_->isReadOnly())
        return;
    const std::string text = edit_->text().toStdString();
    if (text.starts_with("---")) {
        ShowHint(WordsOf(SideTextMarker)); // it would lock the item
        return;
    }
    std::string& stored = LanguageTable(edition_, item_);
    unsaved_ = unsaved_ || stored != text;
    stored = text;
    editionItems_->Refresh();
    referenceItems_->Refresh(); // both may show the same language
    StepTo(std::min(item_ + 1, LanguageItems - 1));
    ShowHint();
}

void frmLanguage::ApplyEdition() {
    LanguageIndex = static_cast<Integer>(edition_);
    if (languageChanged_)
        languageChanged_();
    Retranslate();
}

void frmLanguage::GoToEmpty() {
    const int next = NextEmptyItem(edition_, item_);
    if (next < 0) {
        ShowHint(WordsOf(SideTextNothingEmpty));
        return;
    }
    StepTo(next);
    edit_->setFocus();
}

void frmLanguage::Save() {
    const Integer failure = SaveLanguagePack();
    // The save has set the section markers of every language.
    editionItems_->Refresh();
    referenceItems_->Refresh();
    if (failure != 0) {
        ShowFileFailure(LanguageText(TextSaveFailed) + "_1 ", {failure, 0},
                        ProgramFolder() + "/config/langpack.oml",
                        WordsOf(SideTextPackUntouched).toStdString());
        return;
    }
    unsaved_ = false;
    const QString told = "langpack.oml: " + WordsOf(SideTextSaved);
    ShowStatus(told.toStdString());
    ShowHint(told);
}

void frmLanguage::showEvent(QShowEvent* event) {
    LanguageEditorOpen = On;
    // Another window may have brought a language into use, or the pack may have been read anew.
    editionItems_->Refresh();
    referenceItems_->Refresh();
    QDialog::showEvent(event);
}

void frmLanguage::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        LanguageEditorOpen = Off;
    QDialog::hideEvent(event);
}

} // namespace pulselark
