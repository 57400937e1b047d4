#pragma once

/// The coherence panels `picGCA` and `picGCB`: the newest curves as a waterfall. Nothing is drawn yet.
namespace pulselark {

void DrawCoherenceA();
void DrawCoherenceB();

} // namespace pulselark
