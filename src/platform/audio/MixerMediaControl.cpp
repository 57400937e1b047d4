#include "platform/audio/MixerMediaControl.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace pulselark {

namespace {

constexpr int Frequency = 44100;
constexpr int Channels = 2;
constexpr int ChunkFrames = 2048;

struct MusicDeleter {
    void operator()(Mix_Music* music) const { Mix_FreeMusic(music); }
};

bool OpenDevice() {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    if (Mix_OpenAudio(Frequency, MIX_DEFAULT_FORMAT, Channels, ChunkFrames) == 0)
        return true;
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
}

bool OpenSilentDriver() {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    const bool open = OpenDevice();
    unsetenv("SDL_AUDIODRIVER");
    return open;
}

} // namespace

struct MixerMediaControl::Parts {
    bool Open = false;
    int Volume = 50;
    double Start = 0; // seconds; where a song that does not play would go on
    std::unique_ptr<Mix_Music, MusicDeleter> Song;
};

MixerMediaControl::MixerMediaControl() : parts_(std::make_unique<Parts>()) {}

MixerMediaControl::~MixerMediaControl() {
    if (!parts_->Open)
        return;
    Mix_HaltMusic();
    parts_->Song.reset();
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

Integer MixerMediaControl::Load(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return FailureFileNotFound;
    parts_->Open = parts_->Open || OpenDevice() || OpenSilentDriver();
    if (!parts_->Open)
        return FailureDeviceIO;
    Mix_HaltMusic();
    parts_->Song.reset(Mix_LoadMUS(path.c_str()));
    if (parts_->Song == nullptr)
        return FailureBadFileName;
    SetVolume(parts_->Volume);
    parts_->Start = 0;
    return Mix_PlayMusic(parts_->Song.get(), 1) == 0 ? Integer{0} : Integer{FailureDeviceIO};
}

void MixerMediaControl::Play() {
    if (parts_->Song == nullptr || Mix_PlayingMusic() != 0 || Mix_PlayMusic(parts_->Song.get(), 1) != 0)
        return;
    SetPosition(parts_->Start);
    parts_->Start = 0;
}

void MixerMediaControl::Stop() {
    if (parts_->Song == nullptr)
        return;
    Mix_HaltMusic();
    parts_->Start = 0;
}

// The library tells, and sets, the place of a song that plays; of one that has stopped it keeps the last.
double MixerMediaControl::Position() {
    if (parts_->Song == nullptr)
        return 0;
    return Mix_PlayingMusic() != 0 ? std::max(Mix_GetMusicPosition(parts_->Song.get()), 0.0) : parts_->Start;
}

void MixerMediaControl::SetPosition(double seconds) {
    if (parts_->Song == nullptr || seconds < 0)
        return;
    if (Mix_PlayingMusic() == 0)
        parts_->Start = seconds;
    else
        Mix_SetMusicPosition(seconds);
}

double MixerMediaControl::Duration() {
    if (parts_->Song == nullptr)
        return 0;
    return std::max(Mix_MusicDuration(parts_->Song.get()), 0.0);
}

void MixerMediaControl::SetVolume(int volume) {
    parts_->Volume = std::clamp(volume, 0, 100);
    if (parts_->Open)
        Mix_VolumeMusic(parts_->Volume * MIX_MAX_VOLUME / 100);
}

} // namespace pulselark
