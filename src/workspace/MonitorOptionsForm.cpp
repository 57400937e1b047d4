#include "workspace/MonitorOptionsForm.h"

#include "platform/Platform.h"
#include "session/MonitorChoice.h"
#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <map>
#include <utility>

namespace pulselark {

namespace {

constexpr int FieldRadius = 6;
constexpr int DeviceInterval = 1500; // ms between two looks at what there is

// The caption of an option, with its unit.
QString CaptionOf(const std::string& monitor, const std::string& key) {
    if (key == "rate" && monitor == "Serial ECG")
        return Text(TextOptionSampleRate);
    struct Words {
        int Text;
        const char* Unit;
    };
    static const std::map<std::string, Words> captions{{"seed", {TextOptionSeed, ""}},
                                                       {"rate", {TextHeartRate, "1/min"}},
                                                       {"breathing", {TextBreathingRate, "1/min"}},
                                                       {"depth", {TextOptionDepth, "1/min"}},
                                                       {"ectopic", {TextOptionEctopic, "%"}},
                                                       {"noise", {TextOptionNoise, "mV"}},
                                                       {"dropouts", {TextOptionDisturbances, "1/min"}},
                                                       {"channels", {TextOptionChannels, ""}},
                                                       {"port", {TextOptionPort, ""}},
                                                       {"speed", {TextOptionSpeed, "bit/s"}},
                                                       {"protocol", {TextOptionProtocol, ""}},
                                                       {"scale", {TextOptionGain, ""}},
                                                       {"first", {TextOptionFirstChannel, ""}},
                                                       {"address", {TextOptionStrap, ""}},
                                                       {"file", {TextOptionFile, ""}}};
    const auto found = captions.find(key);
    if (found == captions.end())
        return QString::fromStdString(key);
    const QString unit(found->second.Unit);
    return Text(found->second.Text) + (unit.isEmpty() ? "" : ", " + unit);
}

QString WordsOfChoice(const std::string& choice) {
    if (choice == "lines")
        return Text(TextOptionLines);
    return choice == "cyton" ? Text(TextOptionCyton) : QString::fromStdString(choice);
}

QString FileCaption(const QString& name) {
    constexpr int Longest = 34;
    const QString file = QFileInfo(name).fileName();
    if (file.isEmpty())
        return Text(TextOptionChoose);
    return file.size() > Longest ? file.left(Longest - 1) + QChar(0x2026) : file;
}

} // namespace

MonitorOptionsForm::MonitorOptionsForm(QWidget* parent, std::function<void(const std::function<void()>&)> run)
    : QWidget(parent), run_(std::move(run)) {
    setObjectName("picOptions");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    connect(&deviceTimer_, &QTimer::timeout, this, [this] {
        if (isVisible())
            ListDevices();
    });
}

QString MonitorOptionsForm::ValueOf(const std::string& key) const {
    for (const MonitorOption& option : ThePlatform().EcgMonitors.Options(monitor_)) {
        if (option.Key == key)
            return QString::fromStdString(option.Value);
    }
    return {};
}

void MonitorOptionsForm::Take(const std::string& key, const QString& value) {
    run_([&] {
        ThePlatform().EcgMonitors.SetOption(monitor_, key, value.toStdString());
        Refresh();
    });
}

QWidget* MonitorOptionsForm::NewField(const MonitorOption& option) {
    auto* field = new QLineEdit(fields_);
    connect(field, &QLineEdit::editingFinished, this, [this, field, key = option.Key] {
        if (field->isModified())
            Take(key, field->text().replace(',', '.'));
    });
    refresh_.emplace_back([this, field, key = option.Key] { field->setText(ValueOf(key)); });
    return field;
}

QWidget* MonitorOptionsForm::NewChoice(const MonitorOption& option) {
    QComboBox* list = NewSideList("", fields_);
    for (const std::string& choice : option.Choices)
        list->addItem(WordsOfChoice(choice), QString::fromStdString(choice));
    connect(list, &QComboBox::activated, this,
            [this, list, key = option.Key](int row) { Take(key, list->itemData(row).toString()); });
    refresh_.emplace_back([this, list, key = option.Key] {
        const QSignalBlocker quiet(list);
        list->setCurrentIndex(list->findData(ValueOf(key)));
    });
    return list;
}

QWidget* MonitorOptionsForm::NewFileButton(const MonitorOption& option) {
    auto* button = new ActionButton("", ActionButton::Sign::Chevron, fields_);
    connect(button, &QAbstractButton::clicked, this, [this] {
        run_([] { ChooseReplayFile(); });
        Refresh();
    });
    refresh_.emplace_back([this, button, key = option.Key] {
        button->SetCaption(FileCaption(ValueOf(key)));
        button->setToolTip(ValueOf(key));
    });
    return button;
}

QWidget* MonitorOptionsForm::NewDeviceList(const MonitorOption& option) {
    devices_ = NewSideList("", fields_);
    deviceKey_ = option.Key;
    devices_->setEditable(true);
    devices_->setInsertPolicy(QComboBox::NoInsert);
    devices_->lineEdit()->setPlaceholderText(Text(TextOptionFirstFound));
    // A list that is written in has its frame already.
    devices_->lineEdit()->setStyleSheet("border: none; min-height: 0; padding: 0; background: transparent;");
    connect(devices_, &QComboBox::activated, this,
            [this, key = option.Key](int row) { Take(key, devices_->itemText(row)); });
    connect(devices_->lineEdit(), &QLineEdit::editingFinished, this, [this, key = option.Key] {
        if (devices_->lineEdit()->isModified())
            Take(key, devices_->currentText());
    });
    refresh_.emplace_back([this] { ListDevices(); });
    return devices_;
}

// What is written stands; the list below it is made anew.
void MonitorOptionsForm::ListDevices() {
    if (devices_ == nullptr || devices_->view()->isVisible())
        return;
    QStringList names;
    for (const std::string& name : ThePlatform().EcgMonitors.Devices(monitor_, deviceKey_))
        names.append(QString::fromStdString(name));
    const QSignalBlocker quiet(devices_);
    const bool written = devices_->lineEdit()->isModified();
    const QString text = written ? devices_->currentText() : ValueOf(deviceKey_);
    QStringList rows;
    for (int row = 0; row < devices_->count(); ++row)
        rows.append(devices_->itemText(row));
    if (rows != names) {
        devices_->clear();
        devices_->addItems(names);
    }
    if (devices_->currentText() != text)
        devices_->setEditText(text);
    devices_->lineEdit()->setModified(written);
}

QWidget* MonitorOptionsForm::NewControl(const MonitorOption& option) {
    switch (option.Kind) {
    case OptionKind::Choice:
        return NewChoice(option);
    case OptionKind::File:
        return NewFileButton(option);
    case OptionKind::Device:
        return NewDeviceList(option);
    default:
        return NewField(option);
    }
}

void MonitorOptionsForm::ShowOptionsOf(const std::string& monitor) {
    delete fields_;
    refresh_.clear();
    devices_ = nullptr;
    monitor_ = monitor;
    fields_ = new QWidget(this);
    layout()->addWidget(fields_);
    auto* rows = new QVBoxLayout(fields_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    for (const MonitorOption& option : ThePlatform().EcgMonitors.Options(monitor)) {
        QWidget* control = NewControl(option);
        control->setObjectName("option_" + QString::fromStdString(option.Key));
        control->setFont(TextFont(13));
        const QString caption = CaptionOf(monitor, option.Key);
        control->setAccessibleName(caption);
        FocusRing::Of(window()).Watch(control, FieldRadius);
        auto* label = new QLabel(caption, fields_);
        label->setFont(TextFont(12));
        label->setProperty("hint", true);
        rows->addWidget(label);
        rows->addWidget(control);
        rows->addSpacing(8);
    }
    fields_->show();
    Refresh();
    if (devices_ != nullptr)
        deviceTimer_.start(DeviceInterval);
    else
        deviceTimer_.stop();
}

void MonitorOptionsForm::Refresh() {
    for (const auto& refresh : refresh_)
        refresh();
}

} // namespace pulselark
