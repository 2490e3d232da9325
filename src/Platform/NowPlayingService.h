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

    /// The service watches players only between these two; either may come twice.
    virtual void registerForNotifications() = 0;
    virtual void unregisterForNotifications() = 0;
    /// Sent to what plays; nothing when nothing does.
    virtual void sendCommand(std::uint32_t command) = 0;
};

} // namespace orvelle
