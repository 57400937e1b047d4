#pragma once

#include "base/Numbers.h"

#include <string>
#include <string_view>

/// Text files of one value to a line: strings in double quotes, numbers bare, lines ended by carriage return
/// and line feed. The reader also takes a bare line feed, blanks around a value, strings without quotes and a
/// last line without an end.
namespace pulselark {

/// How a file came out.
struct FileOutcome {
    Integer Number = 0; ///< 0 success, else the number of the failure
    Long Line = 0;      ///< line of a failure in a text, from 1; 0 if it has none
};

/// Reads the values of a text one after another. A failure is thrown as `Failure`; `Line()` then is its line.
class TextRecordReader {
public:
    /// The text must outlive the reader. A byte order mark at its start is passed over.
    explicit TextRecordReader(std::string_view text);

    /// Line of the value read last, or of the value that could not be read; from 1.
    Long Line() const { return line_; }

    /// The text between the first and the last quote of the line, or the bare line. Failure 13 for a quote
    /// that is not closed or text after the closing one, 62 at the end of the text.
    std::string_view NextText();
    /// Failures 13, 6, and 62 at the end of the text.
    Long NextLong();
    Integer NextInteger();
    float NextSingle();
    double NextDouble();
    /// #TRUE# or #FALSE#, in letters of either case; anything else is failure 13.
    Boolean NextBoolean();

private:
    std::string_view NextLine();

    const char* position_;
    const char* end_;
    Long line_ = 0;
};

/// Appends one line each. A quote inside a text is not escaped (the reader takes the first and the last of a
/// line as the text's own); a line end would break the file and becomes a blank.
void AppendTextLine(std::string& out, std::string_view text);
void AppendLongLine(std::string& out, Long value);
void AppendSingleLine(std::string& out, float value);
void AppendDoubleLine(std::string& out, double value);
void AppendBooleanLine(std::string& out, Boolean value);

} // namespace pulselark
