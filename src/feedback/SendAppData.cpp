#include "feedback/SendAppData.h"

namespace pulselark {

void SendAppCommand(int /*command*/, double /*p1*/, double /*p2*/, double /*p3*/, double /*p4*/) {}
void SendAppArray(int /*kind*/) {}
void SendCoherenceValue() {}
void SendFeedbackValue() {}

} // namespace pulselark
