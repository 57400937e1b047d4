#include "FuzzTarget.h"
#include "persistence/RecordingJournal.h"

#include <string_view>

using namespace pulselark;

// Any bytes are no journal, or one whose whole part alone reads back the same and fits a session.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    JournalContent content, again;
    if (!ReadJournal(text, content))
        return 0;
    Promise(content.WholeBytes <= size);
    Promise(content.EcgA.size() <= EcgBufferSize && content.EcgB.size() <= EcgBufferSize);
    Promise(content.IbiA.size() <= SecondsBufferSize && content.IbiB.size() <= SecondsBufferSize);
    Promise(JournalSeconds(content) >= 0);
    Promise(ReadJournal(text.substr(0, content.WholeBytes), again));
    Promise(again.WholeBytes == content.WholeBytes && again.Head.Info == content.Head.Info);
    return 0;
}
