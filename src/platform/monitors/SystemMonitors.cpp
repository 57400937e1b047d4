#include "platform/monitors/SystemMonitors.h"

#include "base/Text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace pulselark {

SystemMonitors::SystemMonitors(Files& files, std::function<std::string()> optionsFile)
    : files_(files), optionsFile_(std::move(optionsFile)) {}

void SystemMonitors::Add(const std::string& name, std::shared_ptr<EcgMonitor> monitor,
                         MonitorOptions* options, DeviceList devices) {
    entries_.push_back({name, std::move(monitor), options, std::move(devices)});
}

SystemMonitors::Entry* SystemMonitors::Named(const std::string& name) {
    ReadOnce();
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&name](const Entry& each) { return each.Name == name; });
    return entry != entries_.end() ? &*entry : nullptr;
}

void SystemMonitors::ReadOnce() {
    if (std::exchange(read_, true) || optionsFile_().empty())
        return;
    std::string bytes;
    if (files_.ReadWhole(optionsFile_(), bytes) != 0)
        return;
    std::string name;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::string_view line = Trimmed(rest.substr(0, rest.find('\n')));
        rest.remove_prefix(
            std::min(rest.size(), rest.find('\n') == rest.npos ? rest.size() : rest.find('\n') + 1));
        if (line.size() > 2 && line.front() == '[' && line.back() == ']')
            name = line.substr(1, line.size() - 2);
        else if (const std::size_t equals = line.find('='); equals != line.npos)
            SetOption(name, std::string(Trimmed(line.substr(0, equals))),
                      std::string(line.substr(equals + 1)));
    }
}

std::vector<std::string> SystemMonitors::Names() const {
    std::vector<std::string> names;
    for (const Entry& entry : entries_)
        names.push_back(entry.Name);
    return names;
}

EcgMonitor* SystemMonitors::Find(const std::string& name) {
    const Entry* entry = Named(name);
    return entry != nullptr ? entry->Monitor.get() : nullptr;
}

const std::vector<MonitorOption>& SystemMonitors::Options(const std::string& name) {
    const Entry* entry = Named(name);
    return entry != nullptr && entry->Options != nullptr ? entry->Options->All() : EcgMonitors::Options(name);
}

bool SystemMonitors::SetOption(const std::string& name, const std::string& key, const std::string& value) {
    const Entry* entry = Named(name);
    return entry != nullptr && entry->Options != nullptr && entry->Options->Set(key, value);
}

Integer SystemMonitors::KeepOptions() {
    ReadOnce();
    if (optionsFile_().empty())
        return 0;
    std::string text;
    for (const Entry& entry : entries_) {
        if (entry.Options == nullptr)
            continue;
        text += "[" + entry.Name + "]\n";
        for (const MonitorOption& option : entry.Options->All())
            text += option.Key + "=" + option.Value + "\n";
    }
    return files_.ReplaceWhole(optionsFile_(), text);
}

std::vector<std::string> SystemMonitors::Devices(const std::string& name, const std::string& key) {
    const Entry* entry = Named(name);
    return entry != nullptr && entry->Devices ? entry->Devices(key) : std::vector<std::string>();
}

} // namespace pulselark
