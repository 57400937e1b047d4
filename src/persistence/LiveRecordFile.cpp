#include "persistence/LiveRecordFile.h"

#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/MainBuffers.h"

#include <algorithm>
#include <new>

namespace pulselark {

namespace {

constexpr int LinesBeforeIntervals = 9 + 21; // after signature, length and mode
constexpr float NoChannelB = 1;

std::vector<float> NextSamples(TextRecordReader& reader, Long count) {
    std::vector<float> samples(static_cast<std::size_t>(count));
    for (float& sample : samples)
        sample = reader.NextSingle();
    return samples;
}

void ReadChannels(TextRecordReader& reader, LiveRecord& record) {
    reader.NextText();
    const Long seconds = reader.NextLong();
    if (seconds < 0 || seconds > LongestSession)
        throw Failure{FailureIndexOutOfRange};
    reader.NextText();
    for (int i = 0; i < LinesBeforeIntervals; ++i)
        reader.NextText();
    for (Long i = 0; i < 2 * seconds; ++i)
        reader.NextSingle();
    record.Rate = SamplesPerSecond;
    record.Channels.clear();
    record.Channels.push_back(NextSamples(reader, seconds * SamplesPerSecond));
    std::vector<float> second = NextSamples(reader, seconds * SamplesPerSecond);
    if (std::any_of(second.begin(), second.end(), [](float sample) { return sample != NoChannelB; }))
        record.Channels.push_back(std::move(second));
}

RecordOutcome ReadWfdbChannels(const std::string& name, LiveRecord& record) {
    constexpr std::size_t MostChannels = 2;
    WfdbHeader header;
    record.Channels.clear();
    for (std::size_t i = 0; i == 0 || i < std::min(header.Signals.size(), MostChannels); ++i) {
        record.Channels.emplace_back();
        RecordOutcome outcome = ReadWfdbRecord(name, i, header, record.Channels.back());
        if (outcome.Number != 0)
            return outcome;
    }
    record.Rate = header.Rate;
    return {};
}

} // namespace

RecordOutcome ReadLiveRecord(const std::string& name, LiveRecord& record) {
    if (const std::string header = WfdbHeaderFile(name); !header.empty())
        return ReadWfdbChannels(header, record);
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0)
        return {{failure, 0}, {}};
    TextRecordReader reader(bytes);
    try {
        ReadChannels(reader, record);
    } catch (const Failure& failure) {
        return {{failure.Number, reader.Line()}, {}};
    } catch (const std::bad_alloc&) {
        return {{FailureOutOfMemory, reader.Line()}, {}};
    }
    return {};
}

} // namespace pulselark
