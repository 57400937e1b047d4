#pragma once

/// The application link: one-way messages to the scenery program. No partner can be reached yet, so nothing
/// is sent.
namespace pulselark {

/// A numbered command with four values.
void SendAppCommand(int command, double p1, double p2, double p3, double p4);
/// The spectrum (kind 0) or the heart rate's spectrum (kind 1) of the second.
void SendAppArray(int kind);
/// The coherence of the second.
void SendCoherenceValue();
/// The value of the mode for the second.
void SendFeedbackValue();

} // namespace pulselark
