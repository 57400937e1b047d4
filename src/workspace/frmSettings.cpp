#include "workspace/frmSettings.h"

#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiSwitches.h"
#include "feedback/SoundTester.h"
#include "platform/MidiOutput.h"
#include "session/MainBuffers.h"
#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/Look.h"
#include "workspace/SettingsTiles.h"
#include "workspace/SideWindowParts.h"
#include "workspace/SoundPad.h"
#include "workspace/Texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int TextNoSoundOutput = 76;
constexpr int ControlRadius = 6;

bool ChangesLook(int toggle) {
    return toggle == ToggleAutoScale || toggle == ToggleBackground || toggle == ToggleSolidGraphs ||
           toggle == ToggleHrvPower;
}

QStringList LanguageNames() {
    QStringList names;
    for (int language = 0; language < NamedLanguageCount; ++language)
        names << LanguageName(language);
    return names;
}

} // namespace

frmSettings::frmSettings(QWidget* owner, SettingsCallbacks callbacks)
    : FormWindow(owner, "frmSettings"), callbacks_(std::move(callbacks)) {
    QVBoxLayout* column = AddColumn();
    BuildGeneral(column);
    BuildLanguage(column);
    column = AddColumn();
    BuildInput(column);
    BuildBiofeedback(column);
    BuildHistory(column);
    column = AddColumn();
    BuildColourSet(column);
    BuildSpectrum(column);
    BuildCoherence(column);
    Retranslate();
    labToggle_[0]->setFocus();
}

FormCard* frmSettings::AddCard(QVBoxLayout* column, int title) {
    auto* card = new FormCard(column->parentWidget());
    column->addWidget(card);
    texts_.append([card, title] { card->SetTitle(Text(title)); });
    return card;
}

ToggleRow* frmSettings::NewToggle(QWidget* card, int index) {
    const bool exclusive = index == TogglePower || index == TogglePowerPerHz;
    auto* toggle = new ToggleRow(QString("labToggle%1").arg(index),
                                 exclusive ? ToggleRow::Box::Round : ToggleRow::Box::Square, card);
    labToggle_[static_cast<std::size_t>(index)] = toggle;
    Ring().Watch(toggle, ControlRadius);
    connect(toggle, &QAbstractButton::clicked, this, [this, index] { Toggle(index); });
    texts_.append([toggle, index] { toggle->SetCaption(Text(TextToggleAboutAtStartup + index)); });
    return toggle;
}

void frmSettings::AddToggles(FormCard* card, std::initializer_list<int> indexes) {
    for (const int index : indexes) {
        const bool dependent = index == ToggleSeparator || index == ToggleOctaveInFront;
        card->AddToggle(NewToggle(card, index), dependent ? ToggleRow::Indent : 0);
    }
}

ActionButton* frmSettings::NewAction(QWidget* card, int index) {
    constexpr std::array<ActionButton::Sign, SettingActionCount> Signs{
        ActionButton::Sign::None, ActionButton::Sign::None, ActionButton::Sign::Chevron,
        ActionButton::Sign::Link};
    auto* action =
        new ActionButton(QString("labSetting%1").arg(index), Signs[static_cast<std::size_t>(index)], card);
    labSetting_[static_cast<std::size_t>(index)] = action;
    Ring().Watch(action, ControlRadius);
    connect(action, &QAbstractButton::clicked, this, [this, index] { Act(index); });
    return action;
}

void frmSettings::AddKnob(FormCard* card, std::size_t index) {
    const SettingsKnob& setting = SettingsKnobs()[index];
    auto* caption = new QLabel(card);
    auto* value = new QLabel(card);
    value->setObjectName(setting.Label);
    value->setFont(TextFont(13, 500));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* knob = new Knob(setting.Name, KnobEnd, card);
    knobs_[index] = knob;
    values_[index] = value;
    Ring().Watch(knob, ControlRadius);
    connect(knob, &Knob::valueChanged, this, [this, index](int position) { Turn(index, position); });
    connect(knob, &Knob::Stepped, knob,
            [knob, &setting](int steps) { knob->setValue(KnobSteppedBy(setting, steps)); });
    connect(knob, &Knob::sliderReleased, this, [this] {
        EndKnobDrag();
        Tell(callbacks_.Changed);
    });
    texts_.append([card, caption, knob, text = setting.Text] {
        caption->setText(Text(text));
        knob->setAccessibleName(card->accessibleName() + ": " + Text(text));
    });
    auto* head = new QHBoxLayout;
    head->addWidget(caption);
    head->addWidget(value, 1);
    card->AddSpace(4);
    card->Add(head);
    card->Add(knob);
}

void frmSettings::BuildGeneral(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextGroupGeneral);
    AddToggles(card, {0, 1, ToggleAutoScale, ToggleBackground, ToggleSolidGraphs, 6, ToggleMultiSessions,
                      ToggleSeparator, 12});
    card->AddSpace(8);
    card->AddRule();
    card->AddSpace(8);
    AddToggles(card, {15, 16, 17, 18, ToggleHrvPower});
    card->AddSpace(8);
    card->AddRule();
    card->AddSpace(16);
    auto* actions = new QHBoxLayout;
    actions->setSpacing(8);
    actions->addWidget(NewAction(card, ActionDefaultLayout), 1);
    actions->addWidget(NewAction(card, ActionSelectLanguage), 1);
    card->Add(actions);
}

void frmSettings::BuildLanguage(QVBoxLayout* column) {
    constexpr int RowsShown = 4;
    FormCard* card = AddCard(column, TextLanguage);
    labLang_ = new FormList("labLang", RowsShown, card);
    Ring().Watch(labLang_, 4);
    connect(labLang_, &FormList::RowChosen, this, [this](int language) {
        ChooseLanguage(language);
        Tell(callbacks_.LanguageChanged);
    });
    texts_.append([this] { labLang_->setAccessibleName(Text(TextLanguage)); });
    card->AddSpace(8);
    card->Add(labLang_);
}

void frmSettings::BuildInput(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextGroupInput);
    card->AddSpace(8);
    card->Add(NewAction(card, ActionChannelSelect));
    card->AddSpace(8);
    card->Add(NewAction(card, ActionSelectMonitor));
}

void frmSettings::BuildBiofeedback(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextGroupBiofeedback);
    auto* caption = new QLabel(card);
    picBFOnOff_ = new FormSwitch("picBFOnOff", card);
    Ring().Watch(picBFOnOff_, 11);
    connect(picBFOnOff_, &QAbstractButton::clicked, this, [this] {
        SwitchBiofeedback();
        ShowMarks();
        Tell(callbacks_.Changed);
    });
    auto* head = new QHBoxLayout;
    head->addWidget(caption, 1);
    head->addWidget(picBFOnOff_);
    card->AddSpace(2);
    card->Add(head);
    card->AddSpace(12);
    auto* devices = new QWidget(card);
    devices->setObjectName("picDevList");
    auto* deviceRows = new QVBoxLayout(devices);
    deviceRows->setContentsMargins(0, 0, 0, 0);
    lstMidiDevice_ = new FormList("lstMidiDevice", 4, devices);
    Ring().Watch(lstMidiDevice_, 4);
    deviceRows->addWidget(lstMidiDevice_);
    card->Add(devices);
    connect(lstMidiDevice_, &FormList::RowChosen, this, [this](int row) {
        ChooseMidiDevice(row);
        Tell(callbacks_.Changed);
    });
    auto* instrument = new QLabel(card);
    picMidiList_ = new FormList("picMidiList", 4, card);
    Ring().Watch(picMidiList_, 4);
    connect(picMidiList_, &FormList::RowChosen, this, [this](int row) {
        ChooseMidiInstrument(row + FirstInstrumentRow);
        Tell(callbacks_.Changed);
    });
    card->AddSpace(12);
    card->Add(instrument);
    card->AddSpace(4);
    card->Add(picMidiList_);
    auto* tester = new QLabel(card);
    picST_ = new SoundPad(card);
    Ring().Watch(picST_, 4);
    connect(picST_, &SoundPad::Dragged, this, [this](double dx, double dy) {
        DragSoundTester(dx, dy);
        Tell(callbacks_.Changed);
    });
    card->AddSpace(12);
    card->Add(tester);
    card->AddSpace(4);
    card->Add(picST_);
    texts_.append([this, card, caption, instrument, tester] {
        card->SetHint(Text(TextGroupBiofeedbackChannel));
        caption->setText(Text(TextSoundWithPanels));
        picBFOnOff_->setAccessibleName(Text(TextSoundWithPanels));
        lstMidiDevice_->setAccessibleName(Text(TextMidiDevice));
        instrument->setText(Text(TextInstrument));
        picMidiList_->setAccessibleName(Text(TextInstrument));
        tester->setText(Text(TextTestSounds));
        picST_->setAccessibleName(Text(TextTestSounds));
    });
}

void frmSettings::BuildHistory(QVBoxLayout* column) {
    constexpr int Columns = 5;
    FormCard* card = AddCard(column, TextGroupHistory);
    AddKnob(card, SettingsKnobCount - 1);
    auto* caption = new QLabel(card);
    auto* bar = new QWidget(card);
    bar->setObjectName("hsHisStyle");
    auto* strip = new QVBoxLayout(bar);
    strip->setContentsMargins(0, 0, 0, 0);
    picHisStyle_ =
        new TileStrip("picHisStyle", HistoryStyleMax, Columns, HistoryTile, &PaintHistoryTile, bar);
    Ring().Watch(picHisStyle_, ControlRadius);
    strip->addWidget(picHisStyle_);
    connect(picHisStyle_, &TileStrip::valueChanged, this, [this](int tile) {
        SetHistoryStyle(tile + 1);
        ShowMarks();
        Tell(callbacks_.Changed);
    });
    texts_.append([this, card, caption] {
        caption->setText(Text(TextHistoryStyle));
        picHisStyle_->setAccessibleName(card->accessibleName() + ": " + Text(TextHistoryStyle));
    });
    card->AddSpace(10);
    card->Add(caption);
    card->AddSpace(8);
    card->Add(bar);
}

void frmSettings::BuildColourSet(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextColourSet);
    picStyle_ =
        new TileStrip("picStyle", ColourSchemeCount, ColourSchemeCount, SchemeTile, &PaintSchemeTile, card);
    Ring().Watch(picStyle_, ControlRadius);
    connect(picStyle_, &TileStrip::valueChanged, this, [this](int scheme) {
        SetColourScheme(scheme);
        ShowMarks();
        Tell(callbacks_.LookChanged);
        Tell(callbacks_.Changed);
    });
    texts_.append([this] {
        QStringList names;
        for (int scheme = 0; scheme < ColourSchemeCount; ++scheme)
            names << Text(TextSchemeMidnight + scheme);
        picStyle_->SetCaptions(names);
        picStyle_->setAccessibleName(Text(TextColourSet));
    });
    card->AddSpace(8);
    card->Add(picStyle_);
}

void frmSettings::BuildSpectrum(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextGroupSpectrum);
    AddKnob(card, 0);
    AddKnob(card, 1);
    card->AddSpace(10);
    auto* units = new QWidget(card);
    auto* row = new QHBoxLayout(units);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(24);
    row->addWidget(NewToggle(units, TogglePower));
    row->addWidget(NewToggle(units, TogglePowerPerHz));
    row->addStretch(1);
    card->AddToggle(units, 0);
}

void frmSettings::BuildCoherence(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextGroupCoherence);
    AddKnob(card, 2);
    AddKnob(card, 3);
    card->AddSpace(10);
    AddToggles(card, {7, 8, 9, ToggleSolidFill, ToggleOctaveInFront});
}

void frmSettings::Tell(const std::function<void()>& callback) {
    if (callback)
        callback();
}

void frmSettings::Toggle(int index) {
    ToggleSetting(index);
    ShowMarks();
    if (ChangesLook(index))
        Tell(callbacks_.LookChanged);
    Tell(callbacks_.Changed);
}

void frmSettings::Act(int index) {
    if (index == ActionSelectLanguage) {
        ScrollTo(labLang_);
        labLang_->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    RunSettingAction(index);
    ShowMarks();
    if (index == ActionChannelSelect)
        hide();
    if (index == ActionDefaultLayout)
        Tell(callbacks_.LookChanged);
    Tell(callbacks_.Changed);
}

// While the mouse holds the knob the pictures are passing ones; a key's or a reader's step is a whole turn.
void frmSettings::Turn(std::size_t knob, int position) {
    SettingsKnobs()[knob].Set(static_cast<Integer>(position));
    if (!knobs_[knob]->isSliderDown())
        EndKnobDrag();
    ShowKnob(knob);
    Tell(callbacks_.Changed);
}

void frmSettings::ShowKnob(std::size_t knob) {
    const SettingsKnob& setting = SettingsKnobs()[knob];
    const QSignalBlocker quiet(knobs_[knob]);
    if (!knobs_[knob]->isSliderDown())
        knobs_[knob]->setValue(setting.Position);
    const QString shown = QString::fromStdString(KnobCaption(setting));
    values_[knob]->setText(shown);
    knobs_[knob]->setAccessibleDescription(shown);
}

void frmSettings::ShowMarks() {
    for (std::size_t i = 0; i < labToggle_.size(); ++i) {
        labToggle_[i]->setChecked(SettingOn(static_cast<int>(i)));
        labToggle_[i]->setVisible(SettingShown(static_cast<int>(i)));
    }
    for (std::size_t i = 0; i < labSetting_.size(); ++i)
        labSetting_[i]->SetCaption(QString::fromStdString(SettingActionCaption(static_cast<int>(i))));
    for (std::size_t i = 0; i < knobs_.size(); ++i)
        ShowKnob(i);
    const auto choose = [](TileStrip* strip, int tile) {
        const QSignalBlocker quiet(strip);
        strip->setValue(tile);
        strip->update();
    };
    choose(picHisStyle_, HistoryStyle - 1);
    choose(picStyle_, ColourSchemeIndex);
    picHisStyle_->setAccessibleDescription(QString::number(HistoryStyle));
    picStyle_->setAccessibleDescription(Text(TextSchemeMidnight + ColourSchemeIndex));
    picBFOnOff_->setChecked(MidiInPanels != Off);
    ShowSound();
    labLang_->SetRows(LanguageNames(), LanguageIndex, QString());
}

void frmSettings::ShowSound() {
    QStringList devices;
    for (const MidiDevice& device : lstMidiDevice) {
        // Its name was taken at the start, when no language had been chosen yet.
        devices << (device.Id == MidiOutput::Mapper ? Text(TextBuiltInSynthesizer)
                                                    : QString::fromStdString(device.Name));
    }
    lstMidiDevice_->SetRows(devices, MidiDeviceIndex, Text(TextNoDevices));
    QStringList instruments;
    for (const std::string& name : MidiInstrumentNames)
        instruments << QString::fromStdString(name);
    picMidiList_->SetRows(instruments, MidiInstrument, Text(TextNoDevices));
}

void frmSettings::Retranslate() {
    RefreshMidiDevices();
    SetTitle(Text(TextSettings));
    for (const auto& text : texts_)
        text();
    ShowMarks();
    FitToScreen();
}

void frmSettings::showEvent(QShowEvent* event) {
    RefreshMidiDevices();
    ShowMarks();
    FitToScreen();
    FormWindow::showEvent(event);
}

// A drag ends with the form: nobody would release the knob any more.
void frmSettings::hideEvent(QHideEvent* event) {
    for (Knob* knob : knobs_)
        knob->setSliderDown(false);
    FormWindow::hideEvent(event);
}

} // namespace pulselark
