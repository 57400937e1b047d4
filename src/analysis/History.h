#pragma once

/// The course of the session on `picHisA` and `picHisB`: coherence and heart rate. Nothing is drawn yet.
namespace pulselark {

void DrawHistoryA();
void DrawHistoryB();

} // namespace pulselark
