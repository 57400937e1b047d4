#pragma once

#include "platform/EcgMonitor.h"
#include "platform/Files.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pulselark {

/// The devices there are for an option; see `EcgMonitors::Devices`.
using DeviceList = std::function<std::vector<std::string>(const std::string& key)>;

/// The monitors of the real program, with their options in a file:
///
///     [Name of the monitor]
///     key=value
///
/// It is read at the first call that needs it. A line that says nothing about an option there is, or gives it
/// no good value, is passed over; a file that cannot be read leaves every option at its start value.
class SystemMonitors final : public EcgMonitors {
public:
    /// `optionsFile` names the file when it is needed; with an empty name none is read or written.
    SystemMonitors(Files& files, std::function<std::string()> optionsFile);

    /// One monitor may have two names. `options` belongs to the monitor.
    void Add(const std::string& name, std::shared_ptr<EcgMonitor> monitor, MonitorOptions* options = nullptr,
             DeviceList devices = nullptr);

    std::vector<std::string> Names() const; ///< in the order in which they were added
    EcgMonitor* Find(const std::string& name) override;
    const std::vector<MonitorOption>& Options(const std::string& name) override;
    bool SetOption(const std::string& name, const std::string& key, const std::string& value) override;
    Integer KeepOptions() override;
    std::vector<std::string> Devices(const std::string& name, const std::string& key) override;

private:
    struct Entry {
        std::string Name;
        std::shared_ptr<EcgMonitor> Monitor;
        MonitorOptions* Options;
        DeviceList Devices;
    };

    Entry* Named(const std::string& name);
    void ReadOnce();

    Files& files_;
    std::function<std::string()> optionsFile_;
    std::vector<Entry> entries_;
    bool read_ = false;
};

} // namespace pulselark
