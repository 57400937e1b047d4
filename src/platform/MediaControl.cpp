#include "platform/MediaControl.h"

namespace pulselark {

namespace {

class SilentMediaControl final : public MediaControl {
public:
    Integer Load(const std::string& /*path*/) override { return FailureDeviceIO; }
    void Play() override {}
    void Stop() override {}
    double Position() override { return 0; }
    void SetPosition(double /*seconds*/) override {}
    double Duration() override { return 0; }
    void SetVolume(int /*volume*/) override {}
};

} // namespace

MediaControl& NoMediaControl() {
    static SilentMediaControl control;
    return control;
}

} // namespace pulselark
