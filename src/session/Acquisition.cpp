#include "session/Acquisition.h"

#include "feedback/ModeSelector.h"
#include "feedback/ggz.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/LiveChannel.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/Recording.h"
#include "session/RecordingTime.h"
#include "session/SessionButtons.h"
#include "session/SessionTick.h"
#include "session/Settings.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pulselark {

namespace {

constexpr Long HalfInterval = 125; // of the journal's samples, ms
constexpr Long SecondInterval = 1000;
// What has piled up in a monitor before the recording began belongs to no session.
constexpr double LongestFirstBatch = 1; // seconds

// One channel of the monitor beside the one of the session.
struct LiveInput {
    Integer Number;
    LiveChannel& Channel;
    Long& WriteIndex;
    ChannelFigures& Figures;
    std::vector<float> Raw; // what came in this tick
    double Total;           // raw samples since `Since`
    Long Since;             // session time of the first of them, ms
};
LiveInput inputA{1, LiveChannelA, WriteIndexA, Diagnostics.A, {}, 0, 0};
LiveInput inputB{2, LiveChannelB, WriteIndexB, Diagnostics.B, {}, 0, 0};

double workOfSeconds = 0; // in the tick that runs, ms

bool RecordsB() {
    return ChannelBPresent != Off && MonitorChannels() > 1;
}

// Reads every channel that is recorded. Returns whether the monitor says that it is connected.
bool ReadInputs() {
    inputA.Raw.clear();
    inputB.Raw.clear();
    bool connected = ReadMonitor(inputA.Number, inputA.Raw);
    if (MonitorChannels() > 1)
        connected = ReadMonitor(inputB.Number, inputB.Raw) && connected;
    return connected;
}

bool AnySample(const std::vector<float>& raw) {
    return std::any_of(raw.begin(), raw.end(), [](float sample) { return !std::isnan(sample); });
}

// Keeps the newest samples that fit `room`, which is in samples of the session. Returns how many seconds of
// older ones went.
double KeepNewest(LiveInput& input, double room) {
    const double rate = MonitorRate(input.Number);
    const auto most = static_cast<std::size_t>(Round(std::max(0.0, room / SamplesPerSecond * rate)));
    const std::size_t old = input.Raw.size() - std::min(input.Raw.size(), most);
    input.Raw.erase(input.Raw.begin(), input.Raw.begin() + static_cast<std::ptrdiff_t>(old));
    return static_cast<double>(old) / rate;
}

// The first samples of a recording or after a loss; the first of them lies at `place` samples of the session.
void ConnectInput(LiveInput& input, Long now, double place) {
    input.Channel.Connect(MonitorRate(input.Number), place);
    input.Total = -static_cast<double>(input.Raw.size()); // they came in no time that could be measured
    input.Since = SessionMilliseconds(now);
}

// A channel's samples of this tick begin where those of the other one do, however many of them have come.
void ConnectInputB(Long now, double place, double secondsGone) {
    if (!RecordsB())
        return;
    const auto gone = static_cast<std::size_t>(Round(secondsGone * MonitorRate(inputB.Number)));
    std::vector<float>& raw = inputB.Raw;
    raw.erase(raw.begin(), raw.begin() + static_cast<std::ptrdiff_t>(std::min(gone, raw.size())));
    ConnectInput(inputB, now, place);
}

// The session's time begins, or goes on, with the first samples.
void BeginInputs(Long now) {
    const double gone = KeepNewest(inputA, LongestFirstBatch * SamplesPerSecond);
    const double came = static_cast<double>(inputA.Raw.size()) / MonitorRate(inputA.Number);
    AnchorSession(now, WriteIndexA + came * SamplesPerSecond);
    SetFirstDueTimes(Later(now, -static_cast<Long>(Round(came * 1000))));
    ConnectInput(inputA, now, WriteIndexA);
    ConnectInputB(now, WriteIndexA, gone);
}

// The samples of this tick, the newest of which came after the usual time on their way. Those that lie before
// the write index are old.
void ResumeInput(LiveInput& input, Long now, double lag) {
    const double newest = SamplesByClock(now) - lag;
    const double step = SamplesPerSecond / MonitorRate(input.Number);
    const double gone = KeepNewest(input, newest + step - input.WriteIndex);
    const double place = newest - (static_cast<double>(input.Raw.size()) - 1) * step;
    ConnectInput(input, now, place);
    if (&input == &inputA)
        ConnectInputB(now, place, gone);
}

void TakeInput(LiveInput& input, Long now) {
    if (!input.Raw.empty())
        input.Channel.Take(input.Raw);
    input.Total += static_cast<double>(input.Raw.size());
    const Long since = SessionMilliseconds(now) - input.Since;
    if (since > 0)
        input.Figures.SamplesPerSecond = input.Total * 1000 / since;
    input.Channel.KeepTime(SessionMilliseconds(now), SamplesByClock(now));
}

// Channel B can be put in and left out while a recording runs.
void TakeInputB(Long now) {
    if (!RecordsB()) {
        LiveChannelB.Disconnect();
        return;
    }
    // One that has not been heard before is as late as the other one.
    const double own = LiveChannelB.UsualLag();
    if (!LiveChannelB.Connected())
        ResumeInput(inputB, now, own != 0 ? own : LiveChannelA.UsualLag());
    TakeInput(inputB, now);
}

// The gap of a lost connection grows with the clock.
void FillGap(Long now) {
    const auto end = static_cast<Long>(SamplesByClock(now) - LiveChannelA.UsualLag());
    LiveChannelA.FillGap(end);
    if (RecordsB())
        LiveChannelB.FillGap(end);
}

void TakeSamples(Long now) {
    const bool connected = ReadInputs();
    const bool came = AnySample(inputA.Raw) || AnySample(inputB.Raw);
    const bool begins = came && !SamplesHaveCome();
    const bool resumes = came && ConnectionLost != Off && !begins;
    WatchConnection(now, connected, came);
    if (!SamplesHaveCome())
        return;
    if (begins)
        BeginInputs(now);
    if (resumes)
        ResumeInput(inputA, now, LiveChannelA.UsualLag());
    if (ConnectionLost != Off) {
        FillGap(now);
        return;
    }
    TakeInput(inputA, now);
    TakeInputB(now);
}

void TakeZeros(Long now) {
    const auto end = static_cast<Long>(SamplesByClock(now));
    LiveChannelA.FillWithZeros(end);
    if (ChannelBPresent != Off)
        LiveChannelB.FillWithZeros(end);
}

// The lamp goes dark for a moment at each beat.
void ShowBeats(Long now) {
    LiveChannelB.NewBeat();
    const auto beat = LiveChannelA.NewBeat();
    if (!beat)
        return;
    timLedBlink.Enabled = true;
    DrawRecordLamp();
    ++Diagnostics.Beats;
    if (beat->Prompt)
        Diagnostics.BeatToLamp.Take(SessionMilliseconds(now) - beat->Time * 1000);
}

void ShowRate(CaptionLabel& label, float interval, bool lost) {
    label.Caption = LanguageText(TextHeartRate) + ": " +
                    (lost ? "--" : std::to_string(Round(60 / static_cast<double>(interval)))) + " " +
                    LanguageText(TextBpm);
}

// The monitor's own reckoning is a check of the beats that are found: where it says another rate than their
// last seconds, it stands behind theirs.
void ShowOtherRate() {
    constexpr Long SecondsCompared = 8;
    const double own = Diagnostics.MonitorRate = MonitorHeartRate();
    if (own <= 0 || RecordedSeconds < SecondsCompared)
        return;
    double sum = 0;
    for (Long second = RecordedSeconds - SecondsCompared + 1; second <= RecordedSeconds; ++second) {
        if (LiveChannelA.SecondLost(second))
            return;
        sum += static_cast<double>(IbiA.at(second));
    }
    if (std::abs(60 * SecondsCompared / sum - own) > std::max(5.0, own / 10))
        labBPMA.Caption += " (" + LanguageText(TextFieldMonitor) + ": " + std::to_string(Round(own)) + ")";
}

// The analyses of a second; of several at once only the newest is shown and heard.
void WorkSecond(bool newest) {
    const double start = ThePlatform().Clock.FineMilliseconds();
    AnalysisSecond = RecordedSeconds;
    if (newest)
        RunSecond(ConnectionLost == Off);
    else
        RunAnalyses();
    Diagnostics.Second.Take(ThePlatform().Clock.FineMilliseconds() - start);
    workOfSeconds += Diagnostics.Second.Last;
}

void ProcessSecond(bool newest) {
    ++RecordedSeconds;
    SessionSeconds = SessionTick = RecordedSeconds;
    SessionUnsaved = On;
    LiveChannelA.StoreIntervals(RecordedSeconds);
    if (RecordsB())
        LiveChannelB.StoreIntervals(RecordedSeconds);
    WorkSecond(newest);
    if (newest) {
        Diagnostics.SecondToChord.Take(SessionMilliseconds(ClockNow()) - 1000.0 * RecordedSeconds);
        ShowRate(labBPMA, IbiA.at(RecordedSeconds), LiveChannelA.SecondLost(RecordedSeconds));
        ShowOtherRate();
        if (ChannelBPresent != Off)
            ShowRate(labBPMB, IbiB.at(RecordedSeconds), LiveChannelB.SecondLost(RecordedSeconds));
    }
    JournalIntervals(RecordedSeconds);
}

Long WholeSecondsWritten() {
    const Long samples = RecordsB() ? std::min(WriteIndexA, WriteIndexB) : WriteIndexA;
    return std::min(samples / SamplesPerSecond, LongestSession);
}

// Every second up to `due` whose samples are all there.
void ProcessSecondsUpTo(Long due) {
    const Long last = std::min(due, WholeSecondsWritten());
    if (RecordedSeconds < last)
        JournalNewSamples();
    while (RecordedSeconds < last)
        ProcessSecond(RecordedSeconds + 1 == last);
}

// Seconds that are due by the clock. The due times keep step with the seconds of the session, which begin
// anywhere in a second of the clock once a recording goes on after a pause.
Long SecondsDue(Long now) {
    static Long due = 0;
    if (MillisecondsBetween(NextSecondDue, now) >= 0) {
        const Long since = std::max<Long>(SessionMilliseconds(now) - FirstSecondDue, 0);
        due = since / SecondInterval;
        NextSecondDue = Later(now, SecondInterval - since % SecondInterval);
    }
    return due;
}

// A training that is fed by the recording ends with it.
void EndByItself(int text) {
    StopRecording();
    ShowStatus(SessionName + LanguageText(text));
    if (TrainingActive == Off)
        return;
    EndModes();
    StopMusicAndScenery();
}

void EndAsRequested(Long now) {
    ProcessSecondsUpTo(SessionMilliseconds(now) / SecondInterval);
    PauseStartTime = now;
    StopRecording();
}

void WriteJournalInParts(Long now) {
    if (MillisecondsBetween(NextHalfDue, now) < 0)
        return;
    NextHalfDue = Later(now, HalfInterval);
    JournalNewSamples();
}

void RunTick() {
    const Long now = ClockNow();
    ++AcquisitionTick;
    if (DryTesting != Off)
        TakeZeros(now);
    else
        TakeSamples(now);
    if (StopRequested != Off)
        return EndAsRequested(now);
    SessionPaused = Off; // what was to be continued runs now
    ShowBeats(now);
    WriteJournalInParts(now);
    if (SamplesHaveCome() || DryTesting != Off)
        ProcessSecondsUpTo(SecondsDue(now));
    if (RecordedSeconds >= LongestSession)
        EndByItself(TextRecordingFull);
    else if (AutoEndSession != Off && RecordedSeconds > AutoEndSeconds)
        EndByItself(TextRecordingAutoEnded);
}

} // namespace

void ProcessTick() {
    const double start = ThePlatform().Clock.FineMilliseconds();
    workOfSeconds = 0;
    RunTick();
    Diagnostics.Tick.Take(ThePlatform().Clock.FineMilliseconds() - start - workOfSeconds);
}

} // namespace pulselark
