#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>
#include <vector>

/// Records of the WFDB form (PhysioNet; "Header file format" and "Signal file formats" of the WFDB
/// Applications Guide): a text header, `.hea`, that names one signal file or more, `.dat`. Read are single
/// segments in format 212 (two samples of 12 bits in three bytes) and format 16 (little-endian), one sample
/// per frame, of any rate.
namespace pulselark {

/// How a record came out.
struct RecordOutcome : FileOutcome {
    std::string Why; ///< in plain English, where the number alone says too little; else empty
};

struct WfdbSignal {
    std::string File;      ///< name without a folder
    int Format = 16;       ///< 16 or 212
    Long Skew = 0;         ///< samples of this signal that come before the record's first moment
    Long ByteOffset = 0;   ///< of the first sample in its file
    double Gain = 200;     ///< steps per unit
    Long Baseline = 0;     ///< step of 0 units
    double UnitsPerMv = 1; ///< 1 for mV, 1000 for uV, 0.001 for V; another unit counts as mV
    std::string Name;
};

struct WfdbHeader {
    double Rate = 250; ///< samples a second
    Long Samples = 0;  ///< per signal; 0 if the header does not say
    std::vector<WfdbSignal> Signals;
};

/// The header file of the record that `name` is the header or the signal file of (`.hea`, `.dat`); empty for
/// any other name.
std::string WfdbHeaderFile(const std::string& name);

/// Reads the text of a header. Failures: 62 lines are missing; 13 a value, a format or a form (segments,
/// several samples per frame) that is not read; 6 a number that does not fit; 52 a signal file with a folder
/// in its name. `header` is then not to be used.
RecordOutcome ReadWfdbHeader(std::string_view text, WfdbHeader& header);

/// Appends the samples of signal `index` (from 0) from the bytes of its file, in panel units (500 per mV); a
/// sample that the file marks as invalid is a NaN. Returns 0, or failure 62 if the file holds fewer samples
/// than the header says, or none.
Integer ReadWfdbSamples(const WfdbHeader& header, std::size_t index, std::string_view bytes,
                        std::vector<float>& samples);

/// Reads signal `index` (from 0) of the record whose header file is `name`. Failures are those of the files
/// and of the two routines above, 9 for a signal that the record does not have, and 6 for a rate that nothing
/// here can work with (see `Resampler`); their line is that of the header.
RecordOutcome ReadWfdbRecord(const std::string& name, std::size_t index, WfdbHeader& header,
                             std::vector<float>& samples);

} // namespace pulselark
