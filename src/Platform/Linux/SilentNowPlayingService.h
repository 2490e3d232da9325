#pragma once

#include "Platform/NowPlayingService.h"

namespace orvelle {

/// A machine on which nothing plays.
class SilentNowPlayingService : public NowPlayingService {
public:
    void registerForNotifications() override {}
    void unregisterForNotifications() override {}
    void sendCommand(std::uint32_t) override {}
};

} // namespace orvelle
