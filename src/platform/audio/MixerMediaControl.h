#pragma once

#include "platform/MediaControl.h"

#include <memory>

namespace pulselark {

/// The media control on the system's mixer library: WAV, MP3, OGG and FLAC. The sound device is opened with
/// the first song; without one the library's silent driver takes its place.
class MixerMediaControl final : public MediaControl {
public:
    MixerMediaControl();
    ~MixerMediaControl() override;

    Integer Load(const std::string& path) override;
    void Play() override;
    void Stop() override;
    double Position() override;
    void SetPosition(double seconds) override;
    double Duration() override;
    void SetVolume(int volume) override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pulselark
