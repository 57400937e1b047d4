#include "workspace/WindowPlatform.h"

#include "persistence/ConfigFolder.h"
#include "persistence/LiveRecordFile.h"
#include "platform/monitors/DeviceMonitors.h"
#include "platform/monitors/StandardMonitors.h"
#include "session/MonitorChoice.h"
#include "session/Settings.h"
#include "workspace/FileDialog.h"
#include "workspace/Texts.h"
#include "workspace/frmMessage.h"
#include "workspace/frmProgressBar.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

// "Name of the type (*.ext)|*.ext" is the form of the core; the toolkit's filter is its first half.
QString PlainFilterOf(const std::string& filter) {
    return QString::fromStdString(filter).section('|', 0, 0);
}

// The dialogs start in a folder, with no name in their field.
QString FolderOf(const std::string& start) {
    const QFileInfo place(QString::fromStdString(start));
    return place.isDir() ? place.absoluteFilePath() : place.absolutePath();
}

QString ExtensionOf(const std::string& filter) {
    return QString::fromStdString(filter).section("*.", -1);
}

// What the dialogs say of a kind of file.
struct FileKind {
    const char* Extension; // the last one of the filter
    int OpenTitle;
    int SaveTitle;
    int Type; // 0: as the core has it
};
constexpr std::array<FileKind, 3> FileKinds{
    {{"hti", TextDialogOpenSession, TextDialogSaveSession, TextFileTypeSession},
     {"plx", TextDialogSaveScan, TextDialogSaveScan, TextFileTypeScan},
     {"htc", TextDialogLoadConfig, TextDialogSaveConfig, TextFileTypeConfig}}};
constexpr FileKind Picture{"", TextMenuBackgroundPicture, TextMenuSnapshot, 0};

const FileKind& KindOf(const std::string& filter) {
    const QString extension = ExtensionOf(filter);
    const auto* kind = std::find_if(FileKinds.begin(), FileKinds.end(),
                                    [&](const FileKind& each) { return extension == each.Extension; });
    return kind != FileKinds.end() ? *kind : Picture;
}

// In the language in use, if the pack's words still name the extension.
QString FilterOf(const std::string& filter) {
    const int type = KindOf(filter).Type;
    const QString words = type != 0 ? Text(type) : QString();
    return words.contains("*." + ExtensionOf(filter)) ? words : PlainFilterOf(filter);
}

std::optional<std::string> NameFrom(QFileDialog& dialog) {
    const QString name = RunFileDialog(dialog);
    return name.isEmpty() ? std::nullopt : std::optional(name.toStdString());
}

QString TitleOf(int text) {
    return Text(text).remove(QString::fromUtf8("…"));
}

} // namespace

WindowPlatform::WindowPlatform()
    : monitors_(files_, [] { return InConfigFolder("monitors.ini"); }), platform_{
                                                                            .Clock = clock_,
                                                                            .Files = files_,
                                                                            .FileDialogs = *this,
                                                                            .Messages = *this,
                                                                            .MessageLoop = *this,
                                                                            .Progress = *this,
                                                                            .PartnerTransport = partners_,
                                                                            .ProgramLauncher = programs_,
                                                                            .MidiOutput = midi_,
                                                                            .MediaControl = music_,
                                                                            .PagePrinter = printer_,
                                                                            .EcgMonitors = monitors_} {
    const MonitorSurroundings surroundings{
        .Clock = clock_,
        .Words = &TextOfMonitorWord,
        .ReadRecord = [](const std::string& file,
                         LiveRecord& record) { return ReadLiveRecord(file, record).Number == 0; },
        .SerialPort = SerialPort,
        .TellPortRefused = &TellPortRefused};
    AddStandardMonitors(monitors_, surroundings);
    AddDeviceMonitors(monitors_, surroundings);
    InstallPlatform(platform_);
}

void WindowPlatform::SetOwner(QWidget* owner) {
    owner_ = owner;
    printer_.SetOwner(owner);
    progress_ = owner != nullptr ? new frmProgressBar(owner) : nullptr;
}

void WindowPlatform::CatchUp() const {
    if (BeforeWaiting)
        BeforeWaiting();
}

std::optional<std::string> WindowPlatform::ChooseFileToOpen(const std::string& start,
                                                            const std::string& filter) {
    CatchUp();
    QFileDialog dialog(owner_, TitleOf(KindOf(filter).OpenTitle), FolderOf(start), FilterOf(filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return NameFrom(dialog);
}

std::optional<std::string> WindowPlatform::ChooseFileToSave(const std::string& start,
                                                            const std::string& filter) {
    CatchUp();
    QFileDialog dialog(owner_, TitleOf(KindOf(filter).SaveTitle), FolderOf(start), FilterOf(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // With the suffix set here, the question about replacing a file is asked for the name as it will be.
    dialog.setDefaultSuffix(ExtensionOf(filter));
    return NameFrom(dialog);
}

int WindowPlatform::Show(const std::string& text, int buttons, const MessageManner& manner) {
    if (unattended_)
        return MostCarefulButton(buttons);
    CatchUp();
    // Over the window that is in use: one that stays in front of the main window would hide the question.
    QWidget* inUse = QApplication::activeWindow();
    return ShowMessageWindow(inUse != nullptr ? inUse : owner_.data(), QString::fromStdString(text), buttons,
                             manner);
}

void WindowPlatform::Yield() {
    CatchUp();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void WindowPlatform::Show(const std::string& caption) {
    if (progress_)
        progress_->SetCaption(QString::fromStdString(caption));
}

void WindowPlatform::Draw(double percent) {
    if (progress_ && !unattended_)
        progress_->Draw(percent);
}

void WindowPlatform::Hide() {
    if (progress_)
        progress_->hide();
}

} // namespace pulselark
