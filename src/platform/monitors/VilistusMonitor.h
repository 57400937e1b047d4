#pragma once

#include "platform/Clock.h"
#include "platform/MonitorWords.h"
#include "platform/monitors/DriverLibrary.h"
#include "platform/monitors/PanelMonitor.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pulselark {

/// "Vilistus": monitors behind the driver library `libvilistus.so`. Each operation but `TerminateDSU` has the
/// number of the unit, 1, by reference as its first argument. The start and the end of a recording call
///
///     int SetDebugMode(int* unit, int mode, const char* log)
///     int SetDSUBaudRate(int* unit, int code), SetDSUPacketLength(int* unit, int bytes)
///     int SetComPorts(int* unit, int, int, int port)       below 0 is a failure
///     int SetScanWaitTime(int* unit, int), InitialiseDSU(int* unit)
///     int ActiveComPort(int* unit)                         the port in use
///     int TerminateDSU(int, int, const char* session)
///
/// The arguments of what the recording itself needs are not known to us; these are the least they can do
/// with. A library that lacks them opens, too, and gives no samples, no state and no version.
///
///     int GetEpoch(int* unit, int channel, float* samples, int room)   how many it gave; panel units
///     int GetSystemStatus(int* unit)                       0 to 6: `MonitorWord::StateOk` and the next ones
///     int ReportVersion(int* unit)
class VilistusMonitor final : public PanelMonitor {
public:
    /// `serialPort` is the port the driver is to use, and takes the one that answered. `portRefused` tells
    /// the user of a failure to set it, with the driver's code; the start goes on all the same.
    VilistusMonitor(Clock& clock, MonitorWords words, Integer& serialPort, void (*portRefused)(Long),
                    std::string library = "libvilistus.so");

    /// Succeeds whenever there is the library: whether a unit answers is not asked.
    Integer Init() override;
    std::string Error_Msg() override;
    std::string Status() override;
    Integer Tot_Channels() override;
    double Sig_Rate(Integer channel) override;
    bool Read_Buff(Integer channel, std::vector<float>& samples) override;
    void CloseC2(Integer handle) override;

private:
    struct Operations {
        Long (*SetDebugMode)(Long*, Long, const char*);
        Long (*SetDSUBaudRate)(Long*, Long);
        Long (*SetDSUPacketLength)(Long*, Long);
        Long (*SetComPorts)(Long*, Long, Long, Long);
        Long (*SetScanWaitTime)(Long*, Long);
        Long (*InitialiseDSU)(Long*);
        Long (*ActiveComPort)(Long*);
        Long (*TerminateDSU)(Long, Long, const char*);
        Long (*GetEpoch)(Long*, Long, float*, Long);
        Long (*GetSystemStatus)(Long*);
        Long (*ReportVersion)(Long*);
    };

    bool OpenLibrary();
    void PrepareVilistus();
    void StopVilistus();
    std::string StateInWords(Long state);

    Clock& clock_;
    MonitorWords words_;
    Integer& serialPort_;
    void (*portRefused_)(Long);
    std::string name_;
    DriverLibrary library_;
    Operations driver_{};
    bool ready_ = false; // the library is open and has what the start needs
    bool open_ = false;
    std::string problem_;
    Long dsuNumber_ = 1;
    std::int64_t lastSample_ = 0; // reading of the clock
};

} // namespace pulselark
