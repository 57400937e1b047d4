#pragma once

#include "base/Numbers.h"

/// The quick scan of a session: a short countdown, then one page on the panel `picQS` that shows channel A or
/// channel B.
namespace pulselark {

extern Integer QsTickCount; ///< ticks of `timQS` since the scan began; start 0

/// No scan is on show, and none is counted down: clears `QuickScanResultShown` and gives the scan's button
/// its first caption. Runs at the start of the program and of a session, and when a session has been loaded.
void ResetQuickScan();

/// A click on entry `index` of `labQSMenu`. Entry 0: with a scan on show the page flips to the other channel;
/// without, a session of more than 270 seconds is scanned, and for any other the user is told why not. A
/// replay that runs is ended; a recording that runs is left alone and refuses the scan. Entry 1 prints.
void QsButtonClick(int index);

/// What the pointer does on an entry of `labQSMenu`: it has left, moves over it, or is pressed on it.
enum class QsPointer { Away, Over, Pressed };
void QsButtonHover(int index, QsPointer pointer);

/// Begins the countdown, under the progress form.
void StartQuickScan();

/// The handler of `timQS`: one step of the countdown, a tick for each 100 seconds of the session, or its end.
void QsTimerTick();

/// The end of the countdown: empties both histograms, puts the scan on show and draws the page of the channel
/// that `QuickScanFresh` tells.
void FinishQuickScan();

/// Measures the channel that is not on show, if the session has both, so that the results of both are there.
/// The page stays as it is.
void MeasureOtherChannel();

} // namespace pulselark
