// A driver library that writes down how it is used; `FakeCalls` is what the test reads and scripts.
#include "platform/FakeDrivers.h"

#include <string>

namespace {

FakeDriver driver;

void Note(const std::string& call) {
    driver.Calls += call + "\n";
}

} // namespace

extern "C" {
FakeDriver* FakeCalls() {
    return &driver;
}
short Init() {
    Note("Init");
    return static_cast<short>(driver.Answer);
}
const char* Error_Msg() {
    return "no electrode";
}
short Tot_Channels() {
    return 2;
}
const char* Sig_Name(short channel) {
    return channel == 1 ? "chest" : "wrist";
}
double Max_Value(short /*channel*/) {
    return 5;
}
double Min_Value(short /*channel*/) {
    return 0;
}
double Sig_Rate(short /*channel*/) {
    return 256;
}
int Read_Buff(short channel, float* samples, int room) {
    if (driver.Waiting < 0)
        return -1;
    const int count = driver.Waiting < room ? driver.Waiting : room;
    for (int i = 0; i < count; ++i)
        samples[i] = channel == 1 ? 5.0F : 2.5F;
    driver.Waiting -= count;
    return count;
}
void CloseC2(short handle) {
    Note("CloseC2 " + std::to_string(handle));
}
}
