#include "persistence/RecordingJournal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace pulselark {

namespace {

constexpr std::string_view FirstLine =
    "PulseLark recording journal 1: records of kind, length, body, CRC-32; 128 samples a second\n";
constexpr std::size_t FrameBytes = 5; // kind and length
constexpr std::size_t CheckBytes = 4;

std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xEDB88320U : value >> 1U;
        table[i] = value;
    }
    return table;
}

void PutNumber(std::string& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(static_cast<char>((value >> shift) & 0xFFU));
}

void PutReals(std::string& out, std::span<const float> values) {
    for (const float value : values)
        PutNumber(out, std::bit_cast<std::uint32_t>(value));
}

void PutText(std::string& out, const std::string& text) {
    PutNumber(out, static_cast<std::uint32_t>(text.size()));
    out += text;
}

void PutRecord(std::string& out, char kind, const std::string& body) {
    const std::size_t start = out.size();
    out.push_back(kind);
    PutNumber(out, static_cast<std::uint32_t>(body.size()));
    out += body;
    PutNumber(out, Crc32(std::string_view(out).substr(start)));
}

// Takes a body apart. What is too short is failure 62.
class BodyReader {
public:
    explicit BodyReader(std::string_view body) : rest_(body) {}

    std::uint32_t Number() {
        const std::string_view bytes = Bytes(4);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            value |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
        return value;
    }
    float Real() { return std::bit_cast<float>(Number()); }
    std::string Text() { return std::string(Bytes(Number())); }
    std::size_t Left() const { return rest_.size(); }
    std::string_view Bytes(std::size_t count) {
        if (count > rest_.size())
            throw Failure{FailureInputPastEnd};
        const std::string_view bytes = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return bytes;
    }

private:
    std::string_view rest_;
};

// Values from number `first` on, the place of which lies within `size`.
void Store(std::vector<float>& values, Long first, Long size, float value) {
    if (first < 1 || first > size || !std::isfinite(value))
        throw Failure{FailureIndexOutOfRange};
    if (values.size() < static_cast<std::size_t>(first))
        values.resize(static_cast<std::size_t>(first), 0.0F);
    values[static_cast<std::size_t>(first) - 1] = value;
}

void TakeHead(BodyReader& body, JournalHead& head) {
    head.Date = body.Text();
    head.Time = body.Text();
    head.Monitor = body.Text();
    const std::uint32_t mode = body.Number();
    if (mode < 1 || mode > 3)
        throw Failure{FailureIndexOutOfRange};
    head.Mode = static_cast<Integer>(mode);
    for (std::string& field : head.Info)
        field = body.Text();
}

void TakeSamples(BodyReader& body, std::vector<float>& samples) {
    for (auto index = static_cast<Long>(body.Number()); body.Left() > 0; ++index)
        Store(samples, index, EcgBufferSize, body.Real());
}

void TakeIntervals(BodyReader& body, JournalContent& content) {
    for (auto second = static_cast<Long>(body.Number()); body.Left() > 0; ++second) {
        Store(content.IbiA, second, SecondsBufferSize, body.Real());
        Store(content.IbiB, second, SecondsBufferSize, body.Real());
    }
}

void TakeRecord(char kind, BodyReader body, JournalContent& content) {
    switch (kind) {
    case 'H':
        return TakeHead(body, content.Head);
    case 'A':
        return TakeSamples(body, content.EcgA);
    case 'B':
        return TakeSamples(body, content.EcgB);
    case 'I':
        return TakeIntervals(body, content);
    default:
        return; // of a later version
    }
}

// The next record, taken away from `rest`; nothing if it is torn.
bool NextRecord(std::string_view& rest, char& kind, std::string_view& body) {
    if (rest.size() < FrameBytes + CheckBytes)
        return false;
    const std::size_t length = BodyReader(rest.substr(1)).Number();
    if (length > rest.size() - FrameBytes - CheckBytes)
        return false;
    const std::string_view checked = rest.substr(0, FrameBytes + length);
    if (BodyReader(rest.substr(checked.size())).Number() != Crc32(checked))
        return false;
    kind = rest.front();
    body = checked.substr(FrameBytes);
    rest.remove_prefix(checked.size() + CheckBytes);
    return true;
}

} // namespace

std::uint32_t Crc32(std::string_view bytes) {
    static const std::array<std::uint32_t, 256> Table = MakeCrcTable();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = Table[(crc ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (crc >> 8U);
    return ~crc;
}

std::string JournalStart(const JournalHead& head) {
    std::string body;
    PutText(body, head.Date);
    PutText(body, head.Time);
    PutText(body, head.Monitor);
    PutNumber(body, static_cast<std::uint32_t>(head.Mode));
    for (const std::string& field : head.Info)
        PutText(body, field);
    std::string start(FirstLine);
    PutRecord(start, 'H', body);
    return start;
}

void AppendSamples(std::string& journal, char channel, Long first, std::span<const float> samples) {
    std::string body;
    PutNumber(body, static_cast<std::uint32_t>(first));
    PutReals(body, samples);
    PutRecord(journal, channel, body);
}

void AppendIntervals(std::string& journal, Long first, std::span<const float> a, std::span<const float> b) {
    std::string body;
    PutNumber(body, static_cast<std::uint32_t>(first));
    for (std::size_t i = 0; i < a.size(); ++i) {
        PutReals(body, a.subspan(i, 1));
        PutReals(body, b.subspan(i, 1));
    }
    PutRecord(journal, 'I', body);
}

bool ReadJournal(std::string_view text, JournalContent& content) {
    content = {};
    if (!text.starts_with(FirstLine))
        return false;
    std::string_view rest = text.substr(FirstLine.size());
    char kind = 0;
    std::string_view body;
    bool headRead = false;
    try {
        while (NextRecord(rest, kind, body) && (headRead || kind == 'H')) {
            TakeRecord(kind, BodyReader(body), content);
            headRead = true;
            content.WholeBytes = text.size() - rest.size();
        }
    } catch (const Failure&) {
        return headRead; // a record that holds what no session can: the end of what counts
    }
    return headRead;
}

Long JournalSeconds(const JournalContent& content) {
    auto samples = static_cast<Long>(content.EcgA.size());
    const auto behind = samples - static_cast<Long>(content.EcgB.size());
    if (behind > 0 && behind < SamplesPerSecond && !content.EcgB.empty())
        samples -= behind; // the end was torn between the two channels
    return (samples + SamplesPerSecond / 2) / SamplesPerSecond;
}

} // namespace pulselark
