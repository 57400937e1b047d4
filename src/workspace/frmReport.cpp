#include "workspace/frmReport.h"

#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/Look.h"
#include "workspace/ReportParts.h"
#include "workspace/Texts.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace pulselark {

namespace {

constexpr int Between = 12; // two fields, one above the other
constexpr int Beside = 16;
constexpr int ControlRadius = 6;

bool Usable(const Label& button) {
    return button.ForeColour == ReportButtonActive;
}

QLayout* SideBySide(std::initializer_list<std::pair<QLayout*, int>> parts) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Beside);
    for (const auto& [part, share] : parts)
        row->addLayout(part, share);
    return row;
}

} // namespace

frmReport::frmReport(QWidget* owner, Runner run)
    : FormWindow(owner, "frmReport"), run_(std::move(run)), labFN_(new QLabel(this)),
      imLockDoc_(new ReportLockPlate(this)) {
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint); // over its owner, whichever of them is used
    labFN_->setObjectName("labFN");
    labFN_->setProperty("hint", true);
    labFN_->setTextFormat(Qt::PlainText);
    labFN_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* cards = new QHBoxLayout;
    cards->setSpacing(Beside);
    cards->addWidget(NewSubjectCard(), 1);
    cards->addWidget(NewCircumstancesCard(), 1);
    QVBoxLayout* column = AddColumn();
    auto* head = new QHBoxLayout;
    head->setSpacing(Beside);
    head->addWidget(labFN_, 1);
    head->addWidget(imLockDoc_);
    column->addLayout(head);
    column->addLayout(cards);
    column->addSpacing(4);
    column->addLayout(NewActions());
    SetTabOrder();
    Retranslate();
    tbSD_[0]->setFocus();
}

// A caption over its box.
QLayout* frmReport::NewField(QWidget* card, int field) {
    const auto i = static_cast<std::size_t>(field);
    captions_[i] = new QLabel(card);
    captions_[i]->setFont(TextFont(12));
    captions_[i]->setProperty("hint", true);
    tbSD_[i] = new ReportBox(field, card);
    captions_[i]->setBuddy(tbSD_[i]);
    Ring().Watch(tbSD_[i], ControlRadius);
    connect(tbSD_[i], &QLineEdit::textEdited, this, [this, field](const QString& text) {
        run_([field, &text] { EditReportField(field, text.toStdString()); });
    });
    auto* layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addWidget(captions_[i]);
    layout->addWidget(tbSD_[i]);
    return layout;
}

QWidget* frmReport::NewSubjectCard() {
    auto* card = new FormCard(this);
    card->SetTitle(QString());
    card->Add(NewField(card, 0));
    card->AddSpace(Between);
    card->Add(SideBySide({{NewField(card, 1), 2}, {NewField(card, 2), 1}}));
    card->AddSpace(Between);
    auto* symbols = new QHBoxLayout;
    symbols->setSpacing(Beside);
    for (int i = 0; i < 2; ++i) {
        auto* symbol = new ReportSymbol(i, card);
        labMF_[static_cast<std::size_t>(i)] = symbol;
        Ring().Watch(symbol, ControlRadius);
        connect(symbol, &QAbstractButton::clicked, this, [this, i] { run_([i] { ChooseReportSymbol(i); }); });
        symbols->addWidget(symbol, 1);
    }
    card->Add(symbols);
    card->AddSpace(Between);
    card->Add(SideBySide({{NewField(card, ReportDateField), 1}, {NewField(card, ReportTimeField), 1}}));
    stampTip_ = new QLabel(card);
    stampTip_->setFont(TextFont(12));
    stampTip_->setProperty("hint", true);
    stampTip_->setWordWrap(true);
    card->AddSpace(6);
    card->Add(stampTip_);
    card->AddSpace(Between);
    card->AddStretch();
    labSetDT_ = NewAction("labSetDT", card, &StampReport);
    card->Add(labSetDT_);
    return card;
}

QWidget* frmReport::NewCircumstancesCard() {
    auto* card = new FormCard(this);
    card->SetTitle(QString());
    card->Add(SideBySide({{NewField(card, 5), 1}, {NewField(card, 6), 1}}));
    for (const int field : {7, 8, 9}) {
        card->AddSpace(Between);
        card->Add(NewField(card, field));
    }
    // The notes are one paragraph of three lines, under one caption.
    for (const int field : {10, 11}) {
        card->AddSpace(4);
        QLayout* line = NewField(card, field);
        captions_[static_cast<std::size_t>(field)]->hide();
        card->Add(line);
    }
    card->AddStretch();
    return card;
}

ActionButton* frmReport::NewAction(const QString& name, QWidget* parent, void (*routine)()) {
    auto* action = new ActionButton(name, ActionButton::Sign::None, parent);
    Ring().Watch(action, ControlRadius);
    connect(action, &QAbstractButton::clicked, this, [this, routine] {
        run_(routine);
        raise(); // a question may have stood before it
        activateWindow();
    });
    return action;
}

QLayout* frmReport::NewActions() {
    labCopyDoc_ = NewAction("labCopyDoc", this, &CopyReport);
    labPasteDoc_ = NewAction("labPasteDoc", this, &PasteReport);
    labClrDoc_ = NewAction("labClrDoc", this, &AskAndClearReport);
    labClrDoc_->SetDanger(true);
    labLockDoc_ = NewAction("labLockDoc", this, &TurnReportLock);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    for (ActionButton* action : {labCopyDoc_, labPasteDoc_, labClrDoc_})
        row->addWidget(action);
    row->addStretch(1);
    row->addWidget(labLockDoc_);
    return row;
}

void frmReport::SetTabOrder() {
    const std::array<QWidget*, 19> order{tbSD_[0],    tbSD_[1],     tbSD_[2],   labMF_[0],  labMF_[1],
                                         tbSD_[3],    tbSD_[4],     labSetDT_,  tbSD_[5],   tbSD_[6],
                                         tbSD_[7],    tbSD_[8],     tbSD_[9],   tbSD_[10],  tbSD_[11],
                                         labCopyDoc_, labPasteDoc_, labClrDoc_, labLockDoc_};
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void frmReport::Mirror() {
    const bool locked = ReportLocked != Off;
    for (std::size_t i = 0; i < tbSD_.size(); ++i)
        tbSD_[i]->Show(tbSD[i].Text, locked);
    for (std::size_t i = 0; i < labMF_.size(); ++i) {
        labMF_[i]->setChecked(imMF[i].Visible);
        labMF_[i]->setEnabled(!locked);
    }
    labSetDT_->setEnabled(!locked);
    labCopyDoc_->setEnabled(Usable(labCopyDoc));
    labPasteDoc_->setEnabled(Usable(labPasteDoc));
    labClrDoc_->setEnabled(Usable(labClrDoc));
    labLockDoc_->SetCaption(Text(locked ? TextDocumentUnlock : TextDocumentLock));
    imLockDoc_->setVisible(imLockDoc.Visible);
    ShowFileName();
}

// As much of the name as there is room for; the end of it tells the file.
void frmReport::ShowFileName() {
    const QString name = QString::fromStdString(labFN.Caption);
    labFN_->setText(labFN_->fontMetrics().elidedText(name, Qt::ElideMiddle, labFN_->width()));
    labFN_->setToolTip(name);
    labFN_->setAccessibleName(name);
}

void frmReport::Retranslate() {
    SetTitle(Text(TextDocument));
    for (int field = 0; field < ReportFieldCount; ++field) {
        const auto i = static_cast<std::size_t>(field);
        captions_[i]->setText(Text(TextFieldTitle + field));
        tbSD_[i]->setAccessibleName(Text(TextFieldTitle + field));
    }
    for (const int field : {ReportDateField, ReportTimeField})
        tbSD_[static_cast<std::size_t>(field)]->setToolTip(Text(TextDocumentStampTip));
    labMF_[0]->SetCaption(Text(TextDocumentSymbol1));
    labMF_[1]->SetCaption(Text(TextDocumentSymbol2));
    stampTip_->setText(Text(TextDocumentStampTip));
    imLockDoc_->SetCaption(Text(TextDocumentLocked));
    labSetDT_->SetCaption(Text(TextDocumentStamp));
    labCopyDoc_->SetCaption(Text(TextDocumentCopy));
    labPasteDoc_->SetCaption(Text(TextDocumentPaste));
    labClrDoc_->SetCaption(Text(TextDocumentClear));
    Mirror();
    FitToScreen();
}

void frmReport::showEvent(QShowEvent* event) {
    Mirror();
    FitToScreen();
    FormWindow::showEvent(event);
}

void frmReport::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    ShowFileName();
}

} // namespace pulselark
