#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pulselark {

/// The radio to a heart strap. No call waits; it seeks, connects and seeks again by itself.
class StrapLink {
public:
    enum class State {
        NoRadio,    ///< there is no radio, or it is switched off
        Seeking,    ///< nothing has answered yet, or no more
        WithoutEcg, ///< the strap is there and has no raw ECG
        Connected,
    };
    using Bytes = std::vector<std::uint8_t>;

    virtual ~StrapLink() = default;
    /// Seeks the strap of that address, or with none the first one heard of.
    virtual void Seek(const std::string& address) = 0;
    virtual void Leave() = 0;
    virtual State Now() = 0;
    /// The notifications since the last call, oldest first.
    virtual std::vector<Bytes> TakeEcg() = 0;
    virtual std::vector<Bytes> TakeHeartRates() = 0;
    /// The straps heard of since the first call, each with its address, a blank and its name.
    virtual std::vector<std::string> Straps() = 0;
};

} // namespace pulselark
