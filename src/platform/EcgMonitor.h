#pragma once

#include "base/Numbers.h"
#include "platform/MonitorOptions.h"

#include <string>
#include <vector>

namespace pulselark {

/// An ECG monitor as the acquisition meets it: nine operations, in the order of their use, and
/// what some of them can say besides.
/// Channels count from 1. No call waits: what has not arrived yet comes with a later `Read_Buff`.
class EcgMonitor {
public:
    virtual ~EcgMonitor() = default;
    /// Opens the monitor. Its handle, above 0; 0 or less if it does not open, and `Error_Msg` says why.
    virtual Integer Init() = 0;
    /// In words what went wrong last, or what the monitor is doing; empty if all is well.
    virtual std::string Error_Msg() = 0;
    /// In words how a monitor that gives samples is, and its driver's version; empty if it does not say.
    virtual std::string Status() { return {}; }
    virtual Integer Tot_Channels() = 0;
    virtual std::string Sig_Name(Integer channel) = 0;
    /// The range of the channel's samples, in the numbers that `Read_Buff` gives.
    virtual double Max_Value(Integer channel) = 0;
    virtual double Min_Value(Integer channel) = 0;
    /// Samples a second.
    virtual double Sig_Rate(Integer channel) = 0;
    /// Appends the samples that have arrived since the last call, in panel units (500 at the line "+500mV").
    /// A sample that the monitor knows to be lost is a NaN in its place, so that the time base holds. Returns
    /// false while the connection is lost; the monitor goes on seeking it by itself. The samples of that time
    /// are never delivered: how long it was, the caller's clock knows.
    virtual bool Read_Buff(Integer channel, std::vector<float>& samples) = 0;
    /// The heart rate by the monitor's own reckoning, beats a minute, as a check of the beats that are found;
    /// 0 if it has none.
    virtual double OwnHeartRate() { return 0; }
    /// Whether its samples come by the program's clock, however fast that goes.
    virtual bool ByProgramClock() const { return false; }
    virtual void CloseC2(Integer handle) = 0;
};

/// The monitors that there are.
class EcgMonitors {
public:
    virtual ~EcgMonitors() = default;
    /// The monitor of that name (`MonitorName`), not yet open; none if there is none of that name. It stays
    /// the property of the list, and there is one of each.
    virtual EcgMonitor* Find(const std::string& name) = 0;

    // Settings of the monitors by name; they count from the next `Init` on.

    /// The options of a monitor with their values; empty if it has none.
    virtual const std::vector<MonitorOption>& Options(const std::string& name);
    /// False, and nothing changes, if there is no such monitor or option or the value is not one for it.
    virtual bool SetOption(const std::string& name, const std::string& key, const std::string& value);
    /// Keeps all values for the next start of the program. Returns 0, or the number of the failure.
    virtual Integer KeepOptions();
    /// The devices there are for an option of the kind `Device`. What takes time to find is sought from the
    /// first call on and comes with a later one.
    virtual std::vector<std::string> Devices(const std::string& name, const std::string& key);
};

/// A computer without monitors.
EcgMonitors& NoEcgMonitors();

} // namespace pulselark
