#include "persistence/SessionFile.h"

#include "base/Text.h"
#include "platform/ProgressDoor.h"
#include "session/MainBuffers.h"

#include <algorithm>
#include <array>
#include <new>
#include <span>

namespace pulselark {

namespace {

constexpr int FutureUseLines = 9;

void TakeChannelMode(std::string_view text) {
    try {
        const double mode = ParseDouble(text);
        if (mode == 1 || mode == 2)
            ChannelMode = static_cast<Integer>(mode);
    } catch (const Failure&) {
        return; // no number: the mode that the user has stays
    }
}

// Values past the end of the buffer are a failure at the first of them.
template <class Buffer>
void ReadSeries(TextRecordReader& reader, Buffer& buffer, Long count) {
    const Long fitting = std::min<Long>(count, Buffer::Size);
    for (Long i = 1; i <= fitting; ++i)
        buffer[i] = reader.NextSingle();
    if (count > fitting)
        throw Failure{FailureIndexOutOfRange};
}

void ReadSamples(TextRecordReader& reader, EcgBuffer& buffer, Long seconds, Long samplesBefore,
                 ProgressDoor& door) {
    constexpr Long SamplesBetweenYields = 10;
    const Long count = seconds * SamplesPerSecond;
    const Long fitting = std::min<Long>(count, EcgBufferSize);
    Long i = 1;
    while (i <= fitting) {
        const Long pause = std::min(i + SamplesBetweenYields, fitting + 1);
        for (; i < pause; ++i)
            buffer[i] = reader.NextSingle();
        door.Pass(samplesBefore + i, 2.0 * count);
    }
    if (count > fitting)
        throw Failure{FailureIndexOutOfRange};
}

void ReadSession(TextRecordReader& reader) {
    reader.NextText(); // the signature
    const Long seconds = reader.NextLong();
    SessionSeconds = seconds >= 0 && seconds <= LongestSession ? seconds : 0;
    if (seconds < 0)
        throw Failure{FailureIndexOutOfRange};
    TakeChannelMode(reader.NextText());
    for (int i = 0; i < FutureUseLines; ++i)
        reader.NextText();
    for (std::string& field : SessionInfo)
        field = reader.NextText();
    ProgressDoor door("loading..");
    ReadSeries(reader, IbiA, seconds);
    ReadSeries(reader, IbiB, seconds);
    ReadSamples(reader, EcgA, seconds, 0, door);
    ReadSamples(reader, EcgB, seconds, seconds * SamplesPerSecond, door);
}

void AppendSeries(std::string& out, std::span<const float> values) {
    constexpr std::size_t ValuesAtOnce = 64;
    std::array<char, ValuesAtOnce*(LongestSingle + 2)> lines;
    while (!values.empty()) {
        const std::size_t count = std::min(ValuesAtOnce, values.size());
        char* end = lines.data();
        for (const float value : values.first(count)) {
            end = WriteSingle(end, value);
            *end++ = '\r';
            *end++ = '\n';
        }
        out.append(lines.data(), end);
        values = values.subspan(count);
    }
}

void AppendRepeated(std::string& out, std::string_view line, Long count) {
    for (Long i = 0; i < count; ++i)
        out.append(line);
}

} // namespace

FileOutcome ReadSessionText(std::string_view text) {
    TextRecordReader reader(text);
    try {
        ReadSession(reader);
    } catch (const Failure& failure) {
        return {failure.Number, reader.Line()};
    } catch (const std::bad_alloc&) {
        return {FailureOutOfMemory, reader.Line()};
    }
    return {};
}

std::string SessionText() {
    const Long seconds = std::clamp<Long>(SessionSeconds, 0, LongestSession);
    const auto secondsCount = static_cast<std::size_t>(seconds);
    const std::size_t samples = secondsCount * SamplesPerSecond;
    constexpr std::size_t TypicalLine = 11;
    std::string out;
    out.reserve(4096 + (2 * samples + 2 * secondsCount) * TypicalLine);
    AppendTextLine(out, "PulseLark");
    AppendLongLine(out, seconds);
    AppendLongLine(out, ChannelMode);
    for (int i = 0; i < FutureUseLines; ++i)
        AppendTextLine(out, "future use");
    for (const std::string& field : SessionInfo)
        AppendTextLine(out, field);
    AppendSeries(out, {IbiA.data(), secondsCount});
    if (ChannelBPresent != Off)
        AppendSeries(out, {IbiB.data(), secondsCount});
    else
        AppendRepeated(out, "0\r\n", seconds);
    AppendSeries(out, {EcgA.data(), samples});
    if (ChannelBPresent != Off)
        AppendSeries(out, {EcgB.data(), samples});
    else
        AppendRepeated(out, "1\r\n", seconds * SamplesPerSecond);
    return out;
}

} // namespace pulselark
