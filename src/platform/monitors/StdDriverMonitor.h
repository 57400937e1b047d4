#pragma once

#include "platform/Clock.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/DriverLibrary.h"
#include "platform/monitors/PanelMonitor.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pulselark {

/// "C2" and "C2PP": monitors behind the driver library `libstddriver.so`, by its nine operations. How their
/// arguments look in detail is not known to us; these are the least they can do with, in C:
///
///     short Init(void)                     handle above 0, else it failed
///     const char* Error_Msg(void)
///     short Tot_Channels(void)
///     const char* Sig_Name(short channel)  channels from 1
///     double Max_Value(short channel), Min_Value(short channel), Sig_Rate(short channel)
///     int Read_Buff(short channel, float* samples, int room)
///                                          how many it gave; below 0 if the connection is lost
///     void CloseC2(short handle)
///
/// The samples, between the driver's least and largest value, are brought to the panel's range.
class StdDriverMonitor final : public PanelMonitor {
public:
    StdDriverMonitor(Clock& clock, MonitorWords words, std::string library = "libstddriver.so");

    Integer Init() override;
    /// Before a monitor is open, whether there is a driver at all.
    std::string Error_Msg() override;
    Integer Tot_Channels() override;
    std::string Sig_Name(Integer channel) override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    void CloseC2(Integer handle) override;

private:
    struct Operations {
        Integer (*Init)();
        const char* (*Error_Msg)();
        Integer (*Tot_Channels)();
        const char* (*Sig_Name)(Integer);
        double (*Max_Value)(Integer);
        double (*Min_Value)(Integer);
        double (*Sig_Rate)(Integer);
        int (*Read_Buff)(Integer, float*, int);
        void (*CloseC2)(Integer);
    };

    bool Prepare();

    Clock& clock_;
    MonitorWords words_;
    std::string name_;
    DriverLibrary library_;
    Operations driver_{};
    bool ready_ = false; // the library is open and has all operations
    bool open_ = false;
    bool refused_ = false; // the driver has not opened the monitor
    std::string problem_;
    std::int64_t lastSample_ = 0; // reading of the clock
};

} // namespace pulselark
