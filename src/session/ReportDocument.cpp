#include "session/ReportDocument.h"

#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"

#include <algorithm>

namespace pulselark {

std::array<TextBox, ReportFieldCount> tbSD;
std::array<PictureSign, 2> imMF;
PictureSign imLockDoc;
Label labCopyDoc, labPasteDoc, labClrDoc, labLockDoc, labSetDT;
std::array<Label, 2> labMF;
Label labFN;
Boolean ReportLocked = Off;
Boolean ReportClipboardFull = Off;
Boolean ReportEmpty = On;
Boolean ReportFromFile = Off;
Boolean ReportPasted = Off;

namespace {

constexpr std::size_t SymbolField = 19;
constexpr std::size_t LockField = 20;

void Activate(Label& button, bool active = true) {
    button.ForeColour = active ? ReportButtonActive : ReportButtonSpent;
}

void Spend(Label& button) {
    Activate(button, false);
}

void SetLock(bool locked) {
    ReportLocked = ToBoolean(locked);
    imLockDoc.Visible = locked;
}

void ShowSymbol(std::size_t i) {
    imMF[i].Visible = true;
    imMF[1 - i].Visible = false;
}

// What every change of the document, by hand or by a button, does to its state.
void MarkChanged() {
    SessionUnsaved = On;
    ReportEmpty = ReportPasted = Off;
    Activate(labClrDoc);
    Activate(labCopyDoc);
    if (ReportClipboardFull != Off)
        Activate(labPasteDoc);
}

void WriteDateAndTime() {
    Clock& clock = ThePlatform().Clock;
    tbSD[ReportDateField].Text = clock.LocalDate();
    tbSD[ReportTimeField].Text = clock.LocalTime();
}

bool AsksForStamp(const TextBox& box) {
    return box.Text.find('s') != std::string::npos;
}

bool Agrees(int question) {
    return ThePlatform().Messages.Show(LanguageText(question), ButtonOK | ButtonCancel) == ButtonOK;
}

bool NothingWritten() {
    return std::all_of(tbSD.begin(), tbSD.end(), [](const TextBox& box) { return box.Text.empty(); });
}

} // namespace

void ResetReportDocument() {
    for (Label* button :
         {&labCopyDoc, &labPasteDoc, &labClrDoc, &labLockDoc, &labSetDT, &labMF[0], &labMF[1]})
        Activate(*button);
    Spend(labPasteDoc); // nothing was copied yet
    ReportClipboardFull = Off;
    ClearReportFields();
    ShowReportFileName();
}

void CollectReportFields() {
    for (std::size_t i = 0; i < tbSD.size(); ++i)
        SessionInfo[i] = tbSD[i].Text;
    SessionInfo[SymbolField] = imMF[0].Visible ? '1' : '0';
    SessionInfo[LockField] = ReportLocked != Off ? '1' : '0';
}

void ShowReportFields() {
    for (std::size_t i = 0; i < tbSD.size(); ++i)
        tbSD[i].Text = SessionInfo[i];
    if (ReportFromFile != Off)
        SetLock(SessionInfo[LockField] == "1");
    ShowSymbol(SessionInfo[SymbolField] == "0" ? 1 : 0);
}

void ClearReportFields() {
    for (TextBox& box : tbSD)
        box.Text.clear();
    SetLock(false);
    SessionInfo[LockField] = '0';
    Spend(labClrDoc);
    Spend(labCopyDoc);
    ShowSymbol(0);
    SessionInfo[SymbolField] = '1';
    ReportEmpty = On;
    ReportPasted = ReportFromFile = Off;
}

void ShowReportFromFile() {
    ReportFromFile = On;
    ReportPasted = Off;
    ShowReportFields();
    ReportEmpty = ToBoolean(NothingWritten());
    const bool open = ReportLocked == Off;
    Activate(labCopyDoc, ReportEmpty == Off);
    Activate(labClrDoc, ReportEmpty == Off && open);
    Activate(labPasteDoc, ReportClipboardFull != Off && open);
    ShowReportFileName();
}

void LockSavedReport() {
    SetLock(true);
    Spend(labClrDoc);
    Spend(labPasteDoc);
    ShowReportFileName();
}

void ShowReportFileName() {
    labFN.Caption = LanguageText(TextDocumentFileName) + SessionName;
}

void EditReportField(int box, const std::string& text) {
    const auto field = static_cast<std::size_t>(box);
    if (ReportLocked != Off) {
        tbSD[field].Text = SessionInfo[field];
        return;
    }
    tbSD[field].Text = text;
    MarkChanged();
    const bool dated = box == ReportDateField || box == ReportTimeField;
    if (dated && (AsksForStamp(tbSD[ReportDateField]) || AsksForStamp(tbSD[ReportTimeField])))
        WriteDateAndTime();
}

void StampReport() {
    if (ReportLocked != Off)
        return;
    MarkChanged();
    WriteDateAndTime();
}

void ChooseReportSymbol(int i) {
    if (ReportLocked != Off)
        return;
    MarkChanged();
    ShowSymbol(static_cast<std::size_t>(i));
}

void CopyReport() {
    if (ReportEmpty != Off)
        return;
    CollectReportFields();
    std::copy_n(SessionInfo.begin(), ReportFieldCount, SessionInfoClipboard.begin());
    ReportClipboardFull = On;
    if (ReportLocked == Off)
        Activate(labPasteDoc);
}

void PasteReport() {
    if (ReportLocked != Off || ReportClipboardFull == Off)
        return;
    std::copy_n(SessionInfoClipboard.begin(), ReportFieldCount, SessionInfo.begin());
    // The symbol is not on the clipboard: the document keeps its own.
    SessionInfo[SymbolField] = imMF[0].Visible ? '1' : '0';
    ShowReportFields();
    MarkChanged(); // the boxes have new texts, whoever wrote them
    Spend(labPasteDoc);
    Spend(labCopyDoc);
    ReportPasted = On;
}

void AskAndClearReport() {
    if (ReportLocked != Off || ReportEmpty != Off || !Agrees(TextClearDocument))
        return;
    ClearReportFields();
    SessionUnsaved = On; // the file still has what was here
}

void TurnReportLock() {
    if (ReportLocked == Off) {
        SetLock(true);
        CollectReportFields();
        Spend(labClrDoc);
        Spend(labPasteDoc);
        return;
    }
    if (ReportFromFile != Off && !Agrees(TextUnlockDocument))
        return;
    SetLock(false);
    Activate(labClrDoc);
    if (ReportClipboardFull != Off && ReportPasted == Off)
        Activate(labPasteDoc);
    ReportFromFile = Off;
}

} // namespace pulselark
