#pragma once

#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/RecordButton.h"
#include "session/SessionTimers.h"
#include "session/Settings.h"
#include "support/SessionTest.h"

namespace pulselark {

/// A program with the fake monitor chosen, whose timers run by the fake clock.
class LiveTest : public SessionTest {
protected:
    LiveTest() {
        InstallTimerHandlers();
        timLoadingProgress.Enabled = false;
        MonitorName = "fake";
        SessionsFolder = "/Sessions/";
        AutoEndSession = Off;
        Outside.Time.Now = 5000;
    }
    void Press() { ReleaseRecordButton(LeftButton); }
    void Record(std::int64_t milliseconds) {
        Press();
        Timers.Advance(milliseconds);
    }
    /// A recording of so many seconds, stopped.
    void RecordAndStop(Long seconds) {
        Record(seconds * 1000 + 500);
        Press();
        Timers.Advance(20);
    }
    FakeEcgMonitor& Monitor() { return Outside.Monitors.Only; }
    std::string& Journal() { return Outside.Disk.Content[JournalFile]; }

    static constexpr const char* JournalFile = "/Sessions/.recording-20261121-174500.journal";
};

} // namespace pulselark
