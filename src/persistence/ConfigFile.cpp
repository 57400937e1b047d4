#include "persistence/ConfigFile.h"

#include "base/Text.h"
#include "session/ModulePanels.h"

#include <algorithm>
#include <limits>

namespace pulselark {

namespace {

// Far beyond any screen, and still a whole number of pixels for whoever draws.
constexpr float LongestLength = 1'000'000;

template <class Read>
FileOutcome ReadRecords(std::string_view text, Read read) {
    TextRecordReader reader(text);
    try {
        read(reader);
    } catch (const Failure& failure) {
        return {failure.Number, reader.Line()};
    }
    return {};
}

void ReadPlace(TextRecordReader& reader, PanelPlace& place) {
    const auto next = [&](float least) { return std::clamp(reader.NextSingle(), least, LongestLength); };
    const float left = next(-LongestLength);
    const float top = next(-LongestLength);
    const float height = next(0);
    const float width = next(0);
    place.Left = left;
    place.Top = top;
    place.Height = height;
    place.Width = width;
}

void ReadConfig(TextRecordReader& reader) {
    for (std::size_t i = 0; i < picModule.size(); ++i) {
        ReadPlace(reader, picModule[i]);
        PanelVisible[i] = reader.NextBoolean();
        PanelStyle[i] = reader.NextInteger();
        PanelOnCanvas[i] = reader.NextInteger();
    }
    ReadPlace(reader, frmScale);
    reader.NextText();
    PanelStyle[CanvasRow] = reader.NextInteger();
    PanelOnCanvas[CanvasRow] = reader.NextInteger();
}

Integer ReadLength(TextRecordReader& reader, int share) {
    if (share == 1)
        return reader.NextInteger();
    constexpr double Most = std::numeric_limits<Integer>::max();
    return static_cast<Integer>(
        Round(std::clamp(static_cast<double>(reader.NextSingle()) / share, -Most, Most)));
}

void ReadPreviewRecord(TextRecordReader& reader, PreviewPlace& place, int share, bool ofWindow) {
    place.Left = ReadLength(reader, share);
    place.Top = ReadLength(reader, share);
    place.Height = ReadLength(reader, share);
    place.Width = ReadLength(reader, share);
    // A file whose window has any other value there can be loaded, too.
    place.Visible = ofWindow ? ToBoolean(reader.NextText() == "#TRUE#") : reader.NextBoolean();
    place.Style = reader.NextInteger();
    place.OnCanvas = reader.NextInteger();
}

void AppendRecord(std::string& out, const PanelPlace& place, std::size_t row) {
    for (const float length : {place.Left, place.Top, place.Height, place.Width})
        AppendSingleLine(out, length);
    AppendBooleanLine(out, place.Visible);
    AppendLongLine(out, PanelStyle[row]);
    AppendLongLine(out, PanelOnCanvas[row]);
}

} // namespace

FileOutcome ReadConfigText(std::string_view text) {
    return ReadRecords(text, ReadConfig);
}

FileOutcome ReadConfigPreview(std::string_view text, int share) {
    return ReadRecords(text, [share](TextRecordReader& reader) {
        for (std::size_t i = 0; i < picModule.size(); ++i)
            ReadPreviewRecord(reader, ConfigPreview[i], share, false);
        ReadPreviewRecord(reader, ConfigPreview[CanvasRow], share, true);
    });
}

std::string ConfigText() {
    std::string out;
    for (std::size_t i = 0; i < picModule.size(); ++i)
        AppendRecord(out, picModule[i], i);
    AppendRecord(out, frmCanvas, CanvasRow);
    return out;
}

} // namespace pulselark
