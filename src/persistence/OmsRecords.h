#pragma once

#include "persistence/TextRecords.h"

#include <algorithm>
#include <limits>
#include <new>
#include <string>
#include <string_view>

/// The lines of a settings file, `.oms`. A file is one routine that names its values in the order of their
/// lines; run over an `OmsReader` it reads them, over an `OmsWriter` it writes them, so that both orders are
/// one.
namespace pulselark {

/// Takes each value straight into its variable, held to its range. Failures are those of `TextRecordReader`.
class OmsReader {
public:
    explicit OmsReader(std::string_view text) : lines_(text) {}
    Long Line() const { return lines_.Line(); }

    void Header() { lines_.NextText(); }
    void Text(std::string& value) { value = lines_.NextText(); }
    void Flag(Boolean& value) { value = lines_.NextBoolean(); }
    void Whole(Integer& value, Integer least = std::numeric_limits<Integer>::min(),
               Integer most = std::numeric_limits<Integer>::max());
    void Real(double& value, double least, double most);
    void ReservedLong() { lines_.NextLong(); }
    void Reserved() { lines_.NextInteger(); }
    /// A line that is written and not read.
    void Padding() {}

private:
    TextRecordReader lines_;
};

class OmsWriter {
public:
    std::string Out;

    void Header() { AppendTextLine(Out, "PulseLark"); }
    void Text(const std::string& value) { AppendTextLine(Out, value); }
    void Flag(Boolean value) { AppendBooleanLine(Out, value); }
    void Whole(Integer value, Integer least = std::numeric_limits<Integer>::min(),
               Integer most = std::numeric_limits<Integer>::max()) {
        AppendLongLine(Out, std::clamp(value, least, most)); // held as the reader would
    }
    void Real(double value, double /*least*/, double /*most*/) { AppendDoubleLine(Out, value); }
    void ReservedLong() { AppendLongLine(Out, 0); }
    void Reserved() { AppendLongLine(Out, 0); }
    void Padding() { AppendLongLine(Out, 0); }
};

/// Reads a text by the routine `lines`. What was read before a failure stays.
template <class Lines>
FileOutcome ReadOms(std::string_view text, Lines lines) {
    OmsReader reader(text);
    try {
        lines(reader);
    } catch (const Failure& failure) {
        return {failure.Number, reader.Line()};
    } catch (const std::bad_alloc&) {
        return {FailureOutOfMemory, reader.Line()};
    }
    return {};
}

} // namespace pulselark
