#pragma once

/// Prints the processor time of the quick scan's page as a PDF, of the first 300 seconds of the session that
/// is open, beside that of an empty page of the same toolkit.
void PrintPageFigures();
