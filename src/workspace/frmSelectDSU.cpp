#include "workspace/frmSelectDSU.h"

#include "platform/Platform.h"
#include "session/MainBuffers.h"
#include "session/MonitorChoice.h"
#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/MonitorCards.h"
#include "workspace/MonitorOptionsForm.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace pulselark {

namespace {

constexpr int CardRadius = 8;
constexpr int Between = 16;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

bool IsDsu(int picture) {
    const std::array<std::string, DsuCount> names{"C2PP", "Vilistus", NotAvailable};
    return MonitorName == names.at(At(picture)) || (picture == 0 && MonitorName == "C2");
}

} // namespace

frmSelectDSU::frmSelectDSU(QWidget* owner, Runner run)
    : FormWindow(owner, "frmSelectDSU"), run_(std::move(run)) {
    setStyleSheet(styleSheet() + SideControlStyle());
    QVBoxLayout* column = AddColumn();
    BuildPictures(column);
    BuildRows(column);
    column = AddColumn();
    BuildOptions(column);
    BuildEnd();
    Retranslate();
}

void frmSelectDSU::BuildPictures(QVBoxLayout* column) {
    pictures_ = new FormCard(column->parentWidget());
    auto* row = new QHBoxLayout;
    row->setSpacing(Between);
    for (int i = 0; i < DsuCount; ++i) {
        auto* card = new DsuCard(i, pictures_);
        Ring().Watch(card, CardRadius);
        connect(card, &DsuCard::PressedWith, this,
                [this, i](bool shift) { run_([=] { PressDsu(i, shift); }); });
        connect(card, &DsuCard::PointedAt, this,
                [this, i](bool over) { run_([=] { PointAtDsu(over ? i : -1); }); });
        picDSU_[At(i)] = card;
        row->addWidget(card);
    }
    pictures_->AddSpace(8);
    pictures_->Add(row);
    column->addWidget(pictures_);
}

void frmSelectDSU::BuildRows(QVBoxLayout* column) {
    plain_ = new FormCard(column->parentWidget());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        auto* row = new MonitorRow(static_cast<int>(i), plain_);
        Ring().Watch(row, CardRadius);
        connect(row, &QAbstractButton::clicked, this,
                [this, i] { run_([i] { PressPlainMonitor(static_cast<int>(i)); }); });
        rows_[i] = row;
        plain_->AddSpace(8);
        plain_->Add(row);
    }
    plain_->AddStretch();
    column->addWidget(plain_, 1);
}

void frmSelectDSU::BuildOptions(QVBoxLayout* column) {
    chosen_ = new FormCard(column->parentWidget());
    words_ = new QLabel(chosen_);
    words_->setObjectName("labWords");
    words_->setFont(TextFont(13));
    words_->setProperty("hint", true);
    words_->setWordWrap(true);
    options_ = new MonitorOptionsForm(chosen_, run_);
    chosen_->AddSpace(4);
    chosen_->Add(words_);
    chosen_->AddSpace(12);
    chosen_->Add(options_);
    chosen_->AddStretch();
    column->addWidget(chosen_, 1);
}

void frmSelectDSU::BuildEnd() {
    QHBoxLayout* end = AddFoot();
    labS_ = new QLabel(this);
    labS_->setObjectName("labS");
    labS_->setFont(TextFont(14, 500));
    labOK_ = NewSideButton("labOK", this);
    MakeMainButton(labOK_);
    QSizePolicy policy = labOK_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    labOK_->setSizePolicy(policy);
    Ring().Watch(labOK_, 6);
    connect(labOK_, &QAbstractButton::clicked, this, &QWidget::hide);
    end->addWidget(labS_, 1);
    end->addWidget(labOK_);
}

void frmSelectDSU::Mirror() {
    for (int i = 0; i < DsuCount; ++i)
        picDSU_[At(i)]->SetMarks(IsDsu(i), picSelect.at(At(i)).Visible);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->setChecked(MonitorName == PlainMonitors[i].Name);
    }
    labS_->setText(QString::fromStdString(labS.Caption));
    labOK_->setVisible(labOK.Visible);
    ShowChosen();
}

// What there is to say of the chosen monitor and to set.
void frmSelectDSU::ShowChosen() {
    const std::string chosen = MonitorChosen() ? MonitorName : std::string();
    if (chosen == shown_)
        return;
    shown_ = chosen;
    EcgMonitor* monitor = ThePlatform().EcgMonitors.Find(chosen);
    const QString words = monitor != nullptr ? QString::fromStdString(monitor->Error_Msg()) : QString();
    // Before a choice the card speaks of the one that everybody can take.
    const PlainMonitor& easy = PlainMonitors.front();
    chosen_->SetTitle(QString::fromStdString(chosen.empty() ? easy.Name : chosen));
    if (chosen.empty())
        words_->setText(Text(easy.Text));
    else
        words_->setText(words.isEmpty() ? Text(TextOptionsCountLater) : words);
    options_->ShowOptionsOf(chosen);
    FitToScreen();
}

void frmSelectDSU::Retranslate() {
    SetTitle(Text(TextMonitorSelect));
    pictures_->SetTitle(Text(TextMonitorsWithDriver));
    plain_->SetTitle(Text(TextMonitorsWithoutDriver));
    const std::array<QString, DsuCount> names{"C2PP", "Vilistus", Text(TextMonitorNotAvailable)};
    for (std::size_t i = 0; i < picDSU_.size(); ++i)
        picDSU_[i]->SetCaption(names.at(i));
    for (std::size_t i = 0; i < rows_.size(); ++i)
        rows_[i]->SetWords(PlainMonitors[i].Name, Text(PlainMonitors[i].Text));
    SetCaption(labOK_, Text(TextOk));
    shown_.assign(1, '-'); // no name of a monitor
    Mirror();
}

// Escape, the close mark and OK hide the form; the core hears of it here.
void frmSelectDSU::hideEvent(QHideEvent* event) {
    FormWindow::hideEvent(event);
    if (ChooserOpen != Off && !event->spontaneous())
        run_(&CloseMonitorChooser);
}

} // namespace pulselark
