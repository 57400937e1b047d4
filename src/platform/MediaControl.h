#pragma once

#include "base/Numbers.h"

#include <string>

namespace pulselark {

/// A player of one song at a time. Positions and durations in seconds, volume 0 to 100. Without a song every
/// call does nothing and reads 0. No call waits for a sound device: where there is none, the song plays
/// unheard, so that its time goes on.
class MediaControl {
public:
    virtual ~MediaControl() = default;
    /// Takes a song and starts it from its beginning. 0, or the number of the failure (52, 53, 57).
    virtual Integer Load(const std::string& path) = 0;
    virtual void Play() = 0;
    /// Ends the sound and goes back to the song's beginning.
    virtual void Stop() = 0;
    virtual double Position() = 0;
    /// Goes to a place of the song; of one that does not play, `Play` starts there.
    virtual void SetPosition(double seconds) = 0;
    /// 0 where the length of the song is not known.
    virtual double Duration() = 0;
    virtual void SetVolume(int volume) = 0;
};

/// The player of a program without music: no song can be loaded.
MediaControl& NoMediaControl();

} // namespace pulselark
