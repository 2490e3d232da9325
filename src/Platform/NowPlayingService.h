#pragma once

#include <cstdint>

namespace orvelle {

/// The system's view of what plays.
class NowPlayingService {
public:
    static constexpr std::uint32_t togglePlayPause = 2;
    static constexpr std::uint32_t nextTrack = 4;
    static constexpr std::uint32_t previousTrack = 5;

    virtual ~NowPlayingService() = default;
    /// Sent to what plays; nothing when nothing does.
    virtual void sendCommand(std::uint32_t command) = 0;
};

} // namespace orvelle
