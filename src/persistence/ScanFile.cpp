#include "persistence/ScanFile.h"

#include "analysis/CoherenceBins.h"
#include "base/Text.h"
#include "persistence/TextRecords.h"
#include "quickscan/QsAnalysis.h"

namespace pulselark {

namespace {

void AppendField(std::string& out, std::size_t field, const char* ifEmpty) {
    AppendTextLine(out, SessionInfo.at(field).empty() ? ifEmpty : SessionInfo.at(field));
}

void AppendDocument(std::string& out) {
    AppendField(out, 0, "[no title]");
    AppendField(out, 3, "[no date]");
    AppendField(out, 4, "[no time]");
}

void AppendFigures(std::string& out, const ScanChannel& channel) {
    AppendDoubleLine(out, static_cast<double>(Round(channel.Power1)));
    AppendDoubleLine(out, static_cast<double>(Round(channel.Power2)));
    AppendDoubleLine(out, ParseDouble(FixedText(channel.PowerRatio, 2)));
    AppendDoubleLine(out, channel.MeanHeartRate);
    AppendLongLine(out, channel.Peak);
}

void AppendChannel(std::string& out, const ScanChannel& channel) {
    AppendTextLine(out, std::string("*** Channel ") + channel.Name + " Scan ***");
    AppendFigures(out, channel);
    for (const Integer count : channel.Bins)
        AppendLongLine(out, count);
    AppendLongLine(out, 0);
}

} // namespace

std::string ScanText() {
    std::string out;
    AppendTextLine(out, "PulseLark Scan");
    AppendLongLine(out, SessionSeconds);
    AppendLongLine(out, ChannelMode);
    AppendDocument(out);
    AppendChannel(out, ScanA);
    AppendChannel(out, ScanB);
    return out;
}

std::string TrainingScanText() {
    std::string out;
    AppendTextLine(out, "PulseLark GGZ Scan");
    AppendLongLine(out, SessionSeconds);
    AppendDocument(out);
    AppendFigures(out, ScanA);
    AppendDoubleLine(out, SessionScore);
    return out;
}

} // namespace pulselark
