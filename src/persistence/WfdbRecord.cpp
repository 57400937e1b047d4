#include "persistence/WfdbRecord.h"

#include "analysis/Resampler.h"
#include "platform/Platform.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace pulselark {

namespace {

constexpr double PanelUnitsPerMv = 500;
constexpr Long MostSignals = 256;
constexpr float Invalid = std::numeric_limits<float>::quiet_NaN();

// A failure of which more can be said than its number.
struct Unread : Failure {
    const char* Why;
};

[[noreturn]] void Fail(FailureNumber number, const char* why = "") {
    throw Unread{{number}, why};
}

// The next word of `line`, which loses it; empty at its end.
std::string_view TakeWord(std::string_view& line) {
    constexpr const char* Blanks = " \t\r";
    const std::size_t start = line.find_first_not_of(Blanks);
    if (start == std::string_view::npos)
        return line = {};
    const std::size_t end = std::min(line.find_first_of(Blanks, start), line.size());
    const std::string_view word = line.substr(start, end - start);
    line.remove_prefix(end);
    return word;
}

// The number at the start of `text`, which loses it.
template <class T>
T TakeNumber(std::string_view& text) {
    T value{};
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc())
        Fail(error == std::errc::result_out_of_range ? FailureOverflow : FailureTypeMismatch);
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return value;
}

bool TakeMark(std::string_view& text, char mark) {
    if (text.empty() || text.front() != mark)
        return false;
    text.remove_prefix(1);
    return true;
}

// Lines of a header without comments and empty lines.
class HeaderLines {
public:
    explicit HeaderLines(std::string_view text) : rest_(text) {}
    Long Line() const { return line_; }
    std::string_view Next() {
        while (!rest_.empty()) {
            const std::size_t end = std::min(rest_.find('\n'), rest_.size());
            const std::string_view line = rest_.substr(0, end);
            rest_.remove_prefix(std::min(end + 1, rest_.size()));
            ++line_;
            const std::size_t first = line.find_first_not_of(" \t\r");
            if (first != std::string_view::npos && line[first] != '#')
                return line;
        }
        ++line_;
        Fail(FailureInputPastEnd);
    }

private:
    std::string_view rest_;
    Long line_ = 0;
};

// "name signals [rate[/counter(base)] [samples ...]]"; the number of signals.
Long ReadRecordLine(std::string_view line, WfdbHeader& header) {
    if (TakeWord(line).find('/') != std::string_view::npos)
        Fail(FailureTypeMismatch, "it is a record of several segments, which are not read");
    std::string_view word = TakeWord(line);
    const auto signals = TakeNumber<Long>(word);
    if (!word.empty() || signals < 1)
        Fail(FailureTypeMismatch, "it has no number of signals");
    if (signals > MostSignals)
        Fail(FailureOverflow);
    word = TakeWord(line);
    if (!word.empty())
        header.Rate = TakeNumber<double>(word);
    if (!std::isfinite(header.Rate) || header.Rate <= 0)
        Fail(FailureOverflow, "its rate is no number above 0");
    word = TakeWord(line);
    if (!word.empty())
        header.Samples = TakeNumber<Long>(word);
    if (header.Samples < 0)
        Fail(FailureOverflow);
    return signals;
}

// "212", "16x1:skew+offset".
void ReadFormat(std::string_view word, WfdbSignal& signal) {
    signal.Format = TakeNumber<int>(word);
    if (signal.Format != 16 && signal.Format != 212)
        Fail(FailureTypeMismatch, "only signals in format 16 or 212 are read");
    if (TakeMark(word, 'x') && TakeNumber<int>(word) != 1)
        Fail(FailureTypeMismatch, "several samples a frame are not read");
    if (TakeMark(word, ':'))
        signal.Skew = TakeNumber<Long>(word);
    if (TakeMark(word, '+'))
        signal.ByteOffset = TakeNumber<Long>(word);
    if (!word.empty())
        Fail(FailureTypeMismatch);
    if (signal.ByteOffset < 0 || signal.Skew < 0)
        Fail(FailureOverflow);
}

// "200", "200(1024)/mV"; whether a baseline is given.
bool ReadGain(std::string_view word, WfdbSignal& signal) {
    const auto gain = TakeNumber<double>(word);
    if (!std::isfinite(gain))
        Fail(FailureOverflow);
    if (std::abs(gain) > 1e-6) // 0 is a gain that nobody measured
        signal.Gain = gain;
    const bool baseline = TakeMark(word, '(');
    if (baseline) {
        signal.Baseline = TakeNumber<Long>(word);
        if (!TakeMark(word, ')'))
            Fail(FailureTypeMismatch);
    }
    if (word == "/uV" || word == "/microV")
        signal.UnitsPerMv = 1000;
    else if (word == "/V")
        signal.UnitsPerMv = 0.001;
    else if (!word.empty() && word.front() != '/')
        Fail(FailureTypeMismatch);
    return baseline;
}

// "file format [gain [resolution [zero [first [checksum [block [name]]]]]]]"
WfdbSignal ReadSignalLine(std::string_view line) {
    WfdbSignal signal;
    signal.File = TakeWord(line);
    if (signal.File.find('/') != std::string::npos || signal.File == "." || signal.File == "..")
        Fail(FailureBadFileName, "its signal file is to lie beside it");
    ReadFormat(TakeWord(line), signal);
    std::string_view word = TakeWord(line);
    if (word.empty())
        return signal;
    const bool baseline = ReadGain(word, signal);
    TakeWord(line);
    word = TakeWord(line);
    if (!baseline && !word.empty())
        signal.Baseline = TakeNumber<Long>(word);
    for (int i = 0; i < 3; ++i)
        TakeWord(line);
    signal.Name = TakeWord(line);
    return signal;
}

std::int32_t Byte(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

// The sample counted `number` from 0; its bytes are known to be there.
float Sample16(std::string_view bytes, std::size_t number) {
    const std::int32_t value = Byte(bytes, 2 * number) | Byte(bytes, 2 * number + 1) << 8;
    return value == 0x8000 ? Invalid : static_cast<float>(value > 0x7FFF ? value - 0x10000 : value);
}

float Sample212(std::string_view bytes, std::size_t number) {
    const std::size_t start = number / 2 * 3;
    const std::int32_t value = number % 2 == 0
                                   ? Byte(bytes, start) | (Byte(bytes, start + 1) & 0x0F) << 8
                                   : Byte(bytes, start + 2) | (Byte(bytes, start + 1) & 0xF0) << 4;
    return value == 0x800 ? Invalid : static_cast<float>(value > 0x7FF ? value - 0x1000 : value);
}

// The folder that a file's name begins with, with its last stroke.
std::string FolderOf(const std::string& name) {
    return name.substr(0, name.rfind('/') + 1);
}

} // namespace

std::string WfdbHeaderFile(const std::string& name) {
    const bool isRecord = name.ends_with(".hea") || name.ends_with(".dat");
    return isRecord ? name.substr(0, name.rfind('.')) + ".hea" : std::string();
}

RecordOutcome ReadWfdbHeader(std::string_view text, WfdbHeader& header) {
    HeaderLines lines(text);
    try {
        header = {};
        const Long signals = ReadRecordLine(lines.Next(), header);
        for (Long i = 0; i < signals; ++i)
            header.Signals.push_back(ReadSignalLine(lines.Next()));
    } catch (const Unread& failure) {
        return {{failure.Number, lines.Line()}, failure.Why};
    }
    return {};
}

Integer ReadWfdbSamples(const WfdbHeader& header, std::size_t index, std::string_view bytes,
                        std::vector<float>& samples) {
    const WfdbSignal& signal = header.Signals.at(index);
    std::size_t together = 0, before = 0; // signals in the same file, and those before this one
    for (std::size_t i = 0; i < header.Signals.size(); ++i) {
        if (header.Signals[i].File != signal.File)
            continue;
        ++together;
        before += i < index ? 1U : 0U;
    }
    bytes.remove_prefix(std::min(bytes.size(), static_cast<std::size_t>(signal.ByteOffset)));
    // Two bytes left over in format 212 are an odd last sample.
    const std::size_t held =
        signal.Format == 16 ? bytes.size() / 2 : bytes.size() / 3 * 2 + (bytes.size() % 3 == 2 ? 1 : 0);
    const std::size_t wanted =
        header.Samples > 0 ? static_cast<std::size_t>(header.Samples) : held / together;
    if (wanted > held / together || wanted == 0)
        return FailureInputPastEnd;
    const auto skew = static_cast<std::size_t>(signal.Skew);
    const double scale = PanelUnitsPerMv / (signal.Gain * signal.UnitsPerMv);
    samples.reserve(samples.size() + wanted);
    for (std::size_t i = 0; i < wanted; ++i) {
        if (i + skew >= held / together) {
            samples.push_back(Invalid);
            continue;
        }
        const std::size_t number = (i + skew) * together + before;
        const float step = signal.Format == 16 ? Sample16(bytes, number) : Sample212(bytes, number);
        samples.push_back(static_cast<float>((step - static_cast<double>(signal.Baseline)) * scale));
    }
    return 0;
}

RecordOutcome ReadWfdbRecord(const std::string& name, std::size_t index, WfdbHeader& header,
                             std::vector<float>& samples) {
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0)
        return {{failure, 0}, {}};
    if (RecordOutcome outcome = ReadWfdbHeader(bytes, header); outcome.Number != 0)
        return outcome;
    if (!Resampler::CanTake(header.Rate))
        return {{FailureOverflow, 0}, "only rates from 10 to 10000 samples a second are read"};
    if (index >= header.Signals.size())
        return {{FailureIndexOutOfRange, 0}, "it has no signal for that channel"};
    const std::string signalFile = FolderOf(name) + header.Signals[index].File;
    Integer failure = ThePlatform().Files.ReadWhole(signalFile, bytes);
    if (failure == 0)
        failure = ReadWfdbSamples(header, index, bytes, samples);
    if (failure != 0)
        return {{failure, 0}, "its signal file " + signalFile + ": " + FailureText(failure)};
    return {};
}

} // namespace pulselark
