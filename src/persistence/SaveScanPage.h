#pragma once

/// The quick scan's page as a file.
namespace pulselark {

inline constexpr const char* PageFileFilter = "PDF (*.pdf)|*.pdf";

/// Asks for a name and writes the page on show as a PDF, whole or not at all, with the outcome in
/// `LastFileResult` and on the status line. Without a scan the user is told that there is nothing to save.
void SaveScanPage();

} // namespace pulselark
