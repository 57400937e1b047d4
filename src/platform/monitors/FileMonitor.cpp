#include "platform/monitors/FileMonitor.h"

#include <algorithm>
#include <utility>

namespace pulselark {

FileMonitor::FileMonitor(Clock& clock, MonitorWords words, LiveRecordReader reader)
    : clock_(clock), reader_(std::move(reader)), words_(words),
      options_({{"file", OptionKind::File, "", 0, 0, {}}}) {}

Integer FileMonitor::Init() {
    const std::string file = options_.Text("file");
    problem_.clear();
    if (file.empty()) {
        problem_ = words_(MonitorWord::NoFileChosen);
        return 0;
    }
    LiveRecord record;
    if (!reader_ || !reader_(file, record) || record.Channels.empty() || record.Rate <= 0) {
        problem_ = words_(MonitorWord::FileUnreadable) + file;
        return 0;
    }
    record_ = std::move(record);
    record_.Channels.resize(std::min(record_.Channels.size(), position_.size()));
    position_ = {};
    start_ = clock_.Milliseconds();
    open_ = true;
    return 1;
}

std::string FileMonitor::Error_Msg() {
    if (!problem_.empty())
        return problem_;
    return open_ && AtEnd() ? words_(MonitorWord::FileAtEnd) : std::string();
}

Integer FileMonitor::Tot_Channels() {
    return static_cast<Integer>(record_.Channels.size());
}

double FileMonitor::Sig_Rate(Integer /*channel*/) {
    return record_.Rate;
}

std::size_t FileMonitor::SamplesDue() const {
    const auto passed = static_cast<double>(clock_.Milliseconds() - start_);
    return static_cast<std::size_t>(std::max(0.0, passed * record_.Rate / 1000));
}

bool FileMonitor::AtEnd() const {
    // The last second of a recording has time to be worked before the connection counts as lost.
    const auto after = static_cast<std::size_t>(0.4 * record_.Rate);
    return record_.Channels.empty() || SamplesDue() >= record_.Channels.front().size() + after;
}

bool FileMonitor::Read_Buff(Integer channel, std::vector<float>& samples) {
    const std::size_t index = static_cast<std::size_t>(channel) - 1;
    if (!open_ || index >= record_.Channels.size())
        return false;
    const std::vector<float>& all = record_.Channels[index];
    const std::size_t end = std::min(SamplesDue(), all.size());
    std::size_t& position = position_.at(index);
    if (end > position) {
        samples.insert(samples.end(), all.begin() + static_cast<std::ptrdiff_t>(position),
                       all.begin() + static_cast<std::ptrdiff_t>(end));
        position = end;
    }
    return !AtEnd();
}

void FileMonitor::CloseC2(Integer /*handle*/) {
    open_ = false;
}

} // namespace pulselark
