// A driver library that writes down how it is used; `FakeCalls` is what the test reads and scripts.
#include "platform/FakeDrivers.h"

#include <string>

namespace {

FakeDriver driver;

int Note(const char* operation, const int* unit, const std::string& arguments) {
    driver.Calls += std::string(operation) + (unit != nullptr ? " #" + std::to_string(*unit) : "") +
                    (arguments.empty() ? "" : " " + arguments) + "\n";
    return 0;
}

std::string Quoted(const char* text) {
    return "'" + std::string(text) + "'";
}

} // namespace

extern "C" {
FakeDriver* FakeCalls() {
    return &driver;
}
int SetDebugMode(int* unit, int mode, const char* log) {
    return Note("SetDebugMode", unit, std::to_string(mode) + " " + Quoted(log));
}
int SetDSUBaudRate(int* unit, int code) {
    return Note("SetDSUBaudRate", unit, std::to_string(code));
}
int SetDSUPacketLength(int* unit, int bytes) {
    return Note("SetDSUPacketLength", unit, std::to_string(bytes));
}
int SetComPorts(int* unit, int first, int last, int port) {
    Note("SetComPorts", unit,
         std::to_string(first) + " " + std::to_string(last) + " " + std::to_string(port));
    return driver.Answer;
}
int SetScanWaitTime(int* unit, int time) {
    return Note("SetScanWaitTime", unit, std::to_string(time));
}
int InitialiseDSU(int* unit) {
    Note("InitialiseDSU", unit, "");
    return -5; // is not asked for
}
int ActiveComPort(int* unit) {
    Note("ActiveComPort", unit, "");
    return 4;
}
int TerminateDSU(int first, int second, const char* session) {
    return Note("TerminateDSU", nullptr,
                std::to_string(first) + " " + std::to_string(second) + " " + Quoted(session));
}
int GetSystemStatus(int* /*unit*/) {
    return driver.State;
}
int ReportVersion(int* /*unit*/) {
    return 31;
}
int GetEpoch(int* /*unit*/, int channel, float* samples, int room) {
    const int count = driver.Waiting < room ? driver.Waiting : room;
    for (int i = 0; i < count; ++i)
        samples[i] = static_cast<float>(100 * channel);
    driver.Waiting -= count;
    return count;
}
}
