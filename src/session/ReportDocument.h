#pragma once

#include "base/Controls.h"
#include "base/Numbers.h"

#include <array>

/// The document that goes with every session: who, when, where, what for. Its text boxes stand for the window
/// `frmReport`; `SessionInfo` takes them to the session file and back. A locked document cannot be edited; a
/// clipboard of its own carries a document to another session.
namespace pulselark {

inline constexpr int ReportFieldCount = 12;
inline constexpr int ReportDateField = 3;
inline constexpr int ReportTimeField = 4;

/// Colours of a label button: one that does something, one that is spent.
inline constexpr Colour ReportButtonActive = 0x404040;
inline constexpr Colour ReportButtonSpent = 0xA0A0A0;

extern std::array<TextBox, ReportFieldCount> tbSD; ///< box n is field n of SessionInfo
extern std::array<PictureSign, 2> imMF;            ///< person symbols; exactly one shows, at first the first
extern PictureSign imLockDoc;                      ///< shows exactly while the document is locked
extern Label labCopyDoc, labPasteDoc, labClrDoc, labLockDoc, labSetDT;
extern std::array<Label, 2> labMF;
extern Label labFN; ///< the session's file

extern Boolean ReportLocked;        ///< the document is locked; start 0
extern Boolean ReportClipboardFull; ///< SessionInfoClipboard holds a copy; start 0
extern Boolean ReportEmpty;         ///< cleared, and nothing typed since; start -1
extern Boolean ReportFromFile;      ///< the document came from a session file; start 0
extern Boolean ReportPasted;        ///< the document is the pasted copy, unchanged since; start 0

/// Everything to its start value: an empty document, an empty clipboard.
void ResetReportDocument();

/// The boxes, the chosen symbol (field 19) and the lock (field 20) go to `SessionInfo`.
void CollectReportFields();

/// The boxes and the symbol from `SessionInfo`, and the lock too if the document came from a file: "1" is
/// locked, anything else is not.
void ShowReportFields();

/// Empties the document and unlocks it.
void ClearReportFields();

/// Shows the document of a session that was just read.
void ShowReportFromFile();

/// Locks the document of a session that was just saved, and shows the name of its file.
void LockSavedReport();

/// `labFN`: "File name: " and the session's name.
void ShowReportFileName();

/// The user has changed box 0 to 11 to `text`. A locked document takes its text back. A lower-case "s" in the
/// date or the time, after an edit of either, is replaced with today's date and the present time in both.
void EditReportField(int box, const std::string& text);

// The label buttons; each checks for itself whether it can be used now.
void StampReport();             ///< labSetDT: date and time of now
void ChooseReportSymbol(int i); ///< labMF(i), 0 or 1
void CopyReport();              ///< labCopyDoc
void PasteReport();             ///< labPasteDoc
void AskAndClearReport();       ///< labClrDoc
void TurnReportLock();          ///< labLockDoc

} // namespace pulselark
