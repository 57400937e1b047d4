#pragma once

#include "base/Numbers.h"

#include <cstdint>
#include <memory>
#include <span>

namespace pulselark {

/// The built-in General MIDI synthesizer. It plays to the system's sound device, or is asked for its samples.
class Synthesizer {
public:
    static constexpr int SampleRate = 44100;

    Synthesizer();
    ~Synthesizer();
    Synthesizer(const Synthesizer&) = delete;
    Synthesizer& operator=(const Synthesizer&) = delete;

    /// Loads the sound font of the system. 0, or 53 if there is none, 7 or 57 if it cannot be loaded.
    Integer Load();
    /// Plays to the sound device from now on. 0, or 57 if there is none. Loads first if need be.
    Integer StartPlaying();
    void StopPlaying();

    /// One packed message; ignored before `Load`.
    void Send(std::uint32_t word);
    /// All sounds off on all channels.
    void Silence();
    /// The next samples, left and right in turn, -1 to 1. Only while it does not play to a device.
    void Render(std::span<float> interleaved);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pulselark
