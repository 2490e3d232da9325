#pragma once

#include "Features/Time/WorldClockEntry.h"
#include "Foundation/Date.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <string>
#include <vector>

namespace orvelle {

/// The local time, and five other zones near the user's own.
class TimeManager : public FeatureModule {
public:
    static constexpr Seconds updateInterval = 1.0;

    explicit TimeManager(Platform& platform = Platform::shared());

    Published<Date> currentTime;
    Timer timer;

    std::string compactTimeString() const; ///< such as "9:41 AM"
    std::string localTimeString() const;   ///< with seconds
    std::string localDateString() const;
    std::string localTimezoneString() const;
    /// The five zones nearest to the user's, from west to east; zones level with it are left out.
    std::vector<WorldClockEntry> surroundingTimezones() const;

    void start() override;

    Platform& platform() const { return platform_; }

private:
    std::string localText(const char* pattern) const;

    Platform& platform_;
};

} // namespace orvelle
