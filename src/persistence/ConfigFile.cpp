#include "persistence/ConfigFile.h"

#include "base/Text.h"
#include "session/ModulePanels.h"

#include <algorithm>

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

void ReadPreviewRecord(TextRecordReader& reader, PreviewPlace& place, bool ofWindow) {
    place.Left = reader.NextInteger();
    place.Top = reader.NextInteger();
    place.Height = reader.NextInteger();
    place.Width = reader.NextInteger();
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

FileOutcome ReadConfigPreview(std::string_view text) {
    return ReadRecords(text, [](TextRecordReader& reader) {
        for (std::size_t i = 0; i < picModule.size(); ++i)
            ReadPreviewRecord(reader, ConfigPreview[i], false);
        ReadPreviewRecord(reader, ConfigPreview[CanvasRow], true);
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
