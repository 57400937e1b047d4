#include "workspace/frmSettingsGGZ.h"

#include "feedback/Pacer.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "session/Training.h"
#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/FormPaint.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"
#include "workspace/TrainingArtwork.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int ControlRadius = 6;
constexpr int Tenths = 10;

int TenthsOf(double value) {
    return static_cast<int>(Round(value * Tenths));
}

} // namespace

// ---- Wave ----

WaveView::WaveView(QWidget* parent) : QWidget(parent) {
    setObjectName("picBWave");
    setFixedHeight(200);
    setAttribute(Qt::WA_OpaquePaintEvent);
    surface_.OnDrawn = [this] { update(); };
    picBWave = &surface_;
}

WaveView::~WaveView() {
    picBWave = &NoSurface();
}

void WaveView::SetUp() {
    constexpr QColor Top(0x5A, 0x6E, 0xB0);
    constexpr QColor Bottom(0x54, 0x68, 0xA8);
    surface_.Resize(width(), height(), devicePixelRatioF());
    QImage well((QSizeF(size()) * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
    well.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&well);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, Top);
    fill.setColorAt(1, Bottom);
    painter.fillRect(rect(), fill);
    painter.end();
    surface_.StoreImage(well);
    SetUpBreathingWave();
}

void WaveView::resizeEvent(QResizeEvent* /*event*/) {
    SetUp();
    DrawBreathingWave();
}

void WaveView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), FormColour::Card);
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect()), 8, 8);
    painter.setClipPath(plate);
    painter.drawImage(QPointF(0, 0), surface_.Picture());
}

// ---- Background ----

BackgroundButton::BackgroundButton(QWidget* parent) : QAbstractButton(parent) {
    setObjectName("PicBFBgnd");
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BackgroundButton::enterEvent(QEnterEvent* /*event*/) {
    update();
}

void BackgroundButton::leaveEvent(QEvent* /*event*/) {
    update();
}

void BackgroundButton::paintEvent(QPaintEvent* /*event*/) {
    constexpr int Backgrounds = 3;
    constexpr double Dot = 4;
    constexpr double DotPitch = 16;
    QPainter painter(this);
    BeginControl(painter, *this);
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient fill(plate.topLeft(), plate.bottomLeft());
    const auto ends = TrainingBackground(PanelBackground);
    fill.setColorAt(0, ends[0]);
    fill.setColorAt(1, ends[1]);
    painter.setPen(QPen(underMouse() || isDown() ? FormColour::Teal : FormColour::Edge, isDown() ? 2 : 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(plate, ControlRadius, ControlRadius);
    for (int i = 0; i < Backgrounds; ++i) {
        const QPointF at(plate.center().x() + (i - 1) * DotPitch, plate.bottom() - 12);
        painter.setPen(QPen(FormColour::Teal, 1.5));
        painter.setBrush(i == PanelBackground ? QBrush(FormColour::Teal) : QBrush(Qt::NoBrush));
        painter.drawEllipse(at, Dot, Dot);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(TrainingColour::Well);
    painter.drawRoundedRect(QRectF(plate.center().x() - 22, plate.top() + 12, 44, 22), 3, 3);
}

// ---- Form ----

frmSettingsGGZ::frmSettingsGGZ(QWidget* owner, std::function<void(const std::function<void()>&)> run)
    : FormWindow(owner, "frmSettingsGGZ"), run_(std::move(run)) {
    constexpr double ShinesThrough = 0.96;
    if (WindowsShineThrough())
        setWindowOpacity(ShinesThrough);
    if (auto* close = findChild<ActionButton*>("picClose"))
        close->setObjectName("labClose");
    BuildBreathing(AddColumn());
    QVBoxLayout* column = AddColumn();
    BuildIndex(column);
    BuildMusic(column);
    BuildView(column);
    Retranslate();
}

FormCard* frmSettingsGGZ::AddCard(QVBoxLayout* column, int title) {
    auto* card = new FormCard(column->parentWidget());
    column->addWidget(card);
    texts_.emplace_back([card, title] { card->SetTitle(Text(title)); });
    return card;
}

QWidget* frmSettingsGGZ::NewValue(FormCard* card, const char* name, const Label& source) {
    auto* value = new QLabel(card);
    value->setObjectName(name);
    value->setFont(TextFont(13, 500));
    labels_.push_back({&source, value, [value](const QString& text) { value->setText(text); }});
    return value;
}

Knob* frmSettingsGGZ::AddBar(FormCard* card, const char* name, int text, int least, int most,
                             void (*take)(int), std::function<int()> position) {
    auto* knob = new Knob(name, most, card);
    knob->setRange(least, most);
    knob->setPageStep(Tenths); // its large step
    Ring().Watch(knob, ControlRadius);
    connect(knob, &Knob::valueChanged, this, [this, take](int value) { run_([=] { take(value); }); });
    connect(knob, &Knob::Stepped, knob, [knob](int steps) { knob->setValue(knob->value() + steps); });
    texts_.emplace_back([knob, text] { knob->setAccessibleName(Text(text)); });
    bars_.push_back({knob, std::move(position)});
    card->AddSpace(8);
    card->Add(knob);
    return knob;
}

void frmSettingsGGZ::BuildBreathing(QVBoxLayout* column) {
    FormCard* rate = AddCard(column, TextBreathingRate);
    rate->AddSpace(4);
    rate->Add(NewValue(rate, "labBR", labBR));
    AddBar(rate, "hsBR", TextBreathingRate, LeastRate, MostRate, &MoveBreathingRate,
           [] { return TenthsOf(BreathingRate); });

    FormCard* balance = AddCard(column, TextBreathingBalance);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(NewValue(balance, "labBB", labBB));
    row->addWidget(NewValue(balance, "labFibo", labFibo));
    row->addStretch(1);
    auto* phi = new ActionButton("labPhi", ActionButton::Sign::None, balance);
    Ring().Watch(phi, ControlRadius);
    connect(phi, &QAbstractButton::clicked, this, [this] { run_(&ChoosePhi); });
    texts_.emplace_back([phi] { phi->SetCaption(Text(TextPhi)); });
    row->addWidget(phi);
    balance->AddSpace(4);
    balance->Add(row);
    AddBar(balance, "hsBB", TextBreathingBalance, LeastBalance, MostBalance, &MoveBreathingBalance,
           [] { return TenthsOf(BreathingBalance); });
    balance->AddSpace(16);
    picBWave_ = new WaveView(balance);
    balance->Add(picBWave_);
    balance->AddSpace(10);
    balance->Add(NewValue(balance, "labBRB", labBRB));
}

void frmSettingsGGZ::BuildIndex(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextDynamicIndexInterval);
    card->AddSpace(4);
    card->Add(NewValue(card, "labDIBFTime", labDIBFTime));
    AddBar(card, "hsDIBF", TextDynamicIndexInterval, LeastInterval, MostInterval, &MoveIndexInterval,
           [] { return std::min<int>(DynamicIndexInterval, MostInterval); });
    auto* ends = new QHBoxLayout;
    ends->setSpacing(16);
    for (const bool low : {true, false}) {
        auto* hint = new QLabel(card);
        hint->setFont(TextFont(12));
        hint->setProperty("hint", true);
        hint->setWordWrap(true);
        hint->setAlignment(low ? Qt::AlignLeft | Qt::AlignTop : Qt::AlignRight | Qt::AlignTop);
        const int text = low ? TextIntervalShort : TextIntervalLong;
        texts_.emplace_back([hint, text] { hint->setText(Text(text)); });
        ends->addWidget(hint, 1);
    }
    card->AddSpace(6);
    card->Add(ends);
}

void frmSettingsGGZ::AddSwitch(FormCard* card, const char* name, const Label& source, const Boolean& value,
                               void (*toggle)()) {
    auto* row = new ToggleRow(name, ToggleRow::Box::Square, card);
    Ring().Watch(row, ControlRadius);
    connect(row, &QAbstractButton::clicked, this, [this, toggle] { run_(toggle); });
    labels_.push_back({&source, row, [row](const QString& text) { row->SetCaption(text.simplified()); }});
    marks_.emplace_back([row, &value] { row->setChecked(value != Off); });
    card->AddToggle(row, 0);
}

void frmSettingsGGZ::BuildMusic(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextAdjustVolume);
    card->AddSpace(4);
    card->Add(NewValue(card, "labVol", labVol));
    AddBar(card, "hsAdjustVol", TextAdjustVolume, 0, MostVolume, &MoveVolume,
           [] { return int{AdjustVolume}; });
    card->AddSpace(12);
    AddSwitch(card, "labAutoPlayMusic", labAutoPlayMusic, AutoPlayMusic, &ToggleAutoPlayMusic);
    AddSwitch(card, "labAutoStartBT", labAutoStartBT, AutoStartBreathing, &ToggleAutoStartBreathing);
}

void frmSettingsGGZ::BuildView(QVBoxLayout* column) {
    FormCard* card = AddCard(column, TextPanelBackground);
    picBFBgnd_ = new BackgroundButton(card);
    Ring().Watch(picBFBgnd_, ControlRadius);
    connect(picBFBgnd_, &QAbstractButton::clicked, this, [this] { run_(&NextPanelBackground); });
    texts_.emplace_back([this] { picBFBgnd_->setAccessibleName(Text(TextPanelBackground)); });
    marks_.emplace_back([this] {
        const QString tip = Text(TextBackgroundTip).arg(PanelBackground + 1);
        picBFBgnd_->setToolTip(tip);
        picBFBgnd_->setAccessibleDescription(tip);
        picBFBgnd_->update();
    });
    card->AddSpace(8);
    card->Add(picBFBgnd_);
    auto* scenery = new ActionButton("picScenery", ActionButton::Sign::Link, card);
    Ring().Watch(scenery, ControlRadius);
    connect(scenery, &QAbstractButton::clicked, this, [this] { run_(&ChooseScenery); });
    texts_.emplace_back([scenery] { scenery->SetCaption(Text(TextSelectScenery)); });
    card->AddSpace(12);
    card->Add(scenery);
}

void frmSettingsGGZ::Mirror() {
    if (!isVisible())
        return;
    for (const ShownLabel& label : labels_)
        label.Set(QString::fromStdString(label.Source->Caption));
    for (const ShownLabel& label : labels_) {
        if (label.Source == &labFibo)
            label.Place->setVisible(labFibo.Visible);
    }
    for (const Bar& bar : bars_) {
        const QSignalBlocker quiet(bar.Control);
        if (!bar.Control->isSliderDown())
            bar.Control->setValue(bar.Position());
        bar.Control->setAccessibleDescription(QString::number(bar.Control->value()));
    }
    for (const auto& mark : marks_)
        mark();
}

void frmSettingsGGZ::Retranslate() {
    SetTitle(Text(TextBiofeedbackSettings));
    labFibo.Caption = LanguageText(TextFibonacci);
    for (const auto& text : texts_)
        text();
    if (isVisible())
        ShowTrainingSettings();
    Mirror();
    FitToScreen();
}

void frmSettingsGGZ::showEvent(QShowEvent* event) {
    BalanceDrawn = 0;
    ShowTrainingSettings();
    FormWindow::showEvent(event);
    Mirror();
    FitToScreen();
}

// Escape and the close mark hide the form; the core hears of it here.
void frmSettingsGGZ::hideEvent(QHideEvent* event) {
    for (const Bar& bar : bars_)
        bar.Control->setSliderDown(false);
    FormWindow::hideEvent(event);
    if (TrainingSettingsOpen != Off && !event->spontaneous())
        run_(&CloseTrainingSettings);
}

} // namespace pulselark
