#include "session/JournalKeeper.h"

#include "analysis/IntervalSeries.h"
#include "persistence/RecordingJournal.h"
#include "platform/Platform.h"
#include "session/Diagnostics.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace pulselark {

Integer JournalFailure = 0;

namespace {

std::unique_ptr<GrowingFile> journal;
std::string journalName;
Long writtenA = 0, writtenB = 0; // samples that the journal has
Long writtenSeconds = 0;         // intervals

// The message waits for a timer, so that the acquisition does not stand still behind it.
void Fail(Integer failure) {
    JournalFailure = failure;
    journal.reset();
    timTellJournal.Enabled = true;
}

void Watch() {
    if (journal == nullptr)
        return;
    if (const double flush = journal->LastFlushMilliseconds(); flush > 0)
        Diagnostics.JournalFlush.Take(flush);
    if (const Integer failure = journal->FailureSoFar(); failure != 0)
        Fail(failure);
}

void Open(const std::string& name) {
    Integer failure = 0;
    journalName = name;
    JournalFailure = 0;
    timTellJournal.Enabled = false;
    journal = ThePlatform().Files.OpenToGrow(name, failure);
    if (journal == nullptr)
        Fail(failure);
}

// Two recordings of one second have different names, and nobody's journal is written over.
std::string FreeName() {
    const std::string start = SessionsFolder + JournalPrefix + ThePlatform().Clock.Stamp();
    std::vector<std::string> taken;
    ThePlatform().Files.ListFolder(SessionsFolder.substr(0, SessionsFolder.find_last_not_of('/') + 1),
                                   JournalExtension, taken);
    std::string name = start + JournalExtension;
    const auto isTaken = [&taken](const std::string& whole) {
        return std::find(taken.begin(), taken.end(), whole.substr(whole.rfind('/') + 1)) != taken.end();
    };
    for (int i = 2; isTaken(name); ++i)
        name = start + "_" + std::to_string(i) + JournalExtension; // sorts behind the first
    return name;
}

void TakeSamples(std::string& bytes, char channel, const EcgBuffer& ecg, Long& written, Long count) {
    if (count <= written)
        return;
    AppendSamples(bytes, channel, written + 1,
                  {ecg.data() + written, static_cast<std::size_t>(count - written)});
    written = count;
}

} // namespace

void BeginJournal() {
    DiscardJournal();
    writtenA = writtenB = writtenSeconds = 0;
    constexpr int Tries = 10; // another program may take the name at this very moment
    Open(FreeName());
    for (int i = 1; i < Tries && JournalFailure == FailureFileAlreadyOpen; ++i)
        Open(FreeName());
    if (journal == nullptr)
        return;
    Clock& clock = ThePlatform().Clock;
    const JournalHead head{.Date = clock.LocalDate(),
                           .Time = clock.LocalTime(),
                           .Monitor = MonitorName,
                           .Mode = ChannelMode,
                           .Info = SessionInfo};
    journal->Append(JournalStart(head), true);
}

void GoOnWithJournal(const std::string& name, const std::string& bytes) {
    // What is torn goes, or nothing after it would count.
    const Integer failure = ThePlatform().Files.ReplaceWhole(name, bytes);
    writtenA = WriteIndexA;
    writtenB = WriteIndexB;
    writtenSeconds = SessionSeconds;
    journalName = name;
    if (failure != 0)
        Fail(failure);
    else
        Open(name);
}

void JournalNewSamples() {
    if (journal == nullptr)
        return;
    std::string bytes;
    TakeSamples(bytes, 'A', EcgA, writtenA, WriteIndexA);
    if (ChannelBPresent != Off)
        TakeSamples(bytes, 'B', EcgB, writtenB, WriteIndexB);
    if (!bytes.empty())
        journal->Append(std::move(bytes), false);
}

void JournalIntervals(Long second) {
    if (journal == nullptr)
        return;
    std::string bytes;
    const Long changed = second - IntervalSeries::SettledAfter;
    const Long first = std::max<Long>(1, std::min(writtenSeconds + 1, changed));
    writtenSeconds = second;
    const auto count = static_cast<std::size_t>(second) - static_cast<std::size_t>(first) + 1;
    AppendIntervals(bytes, first, {IbiA.data() + first - 1, count}, {IbiB.data() + first - 1, count});
    journal->Append(std::move(bytes), true);
    Diagnostics.JournalSeconds = second;
    Watch();
}

void RestJournal() {
    JournalNewSamples();
    if (RecordedSeconds > 0)
        JournalIntervals(RecordedSeconds);
    Watch();
}

void CloseJournal() {
    if (journal == nullptr)
        return;
    journal->Close();
    Watch();
    journal.reset();
}

void DiscardJournal() {
    journal.reset();
    if (!journalName.empty())
        ThePlatform().Files.Remove(journalName);
    journalName.clear();
    JournalFailure = 0;
    timTellJournal.Enabled = false;
}

const std::string& JournalName() {
    return journalName;
}

void ResetJournal() {
    journal.reset();
    journalName.clear();
    JournalFailure = 0;
    writtenA = writtenB = writtenSeconds = 0;
}

} // namespace pulselark
