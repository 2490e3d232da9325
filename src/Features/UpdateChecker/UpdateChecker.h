#pragma once

#include "Core/ServiceRoots.h"
#include "Foundation/Published.h"
#include "Foundation/Tasks.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <optional>
#include <string>

namespace orvelle {

struct HttpReply;

/// Compares the running version with the maker's manifest, at start and once a day. Downloads
/// nothing. A check that fails leaves what an earlier one found.
class UpdateChecker {
public:
    static constexpr Seconds checkInterval = 86400;

    explicit UpdateChecker(Platform& platform = Platform::shared());

    Published<bool> updateAvailable{false};
    Published<std::optional<std::string>> latestVersion; ///< only when newer
    Published<std::optional<std::string>> releaseNotes;  ///< only when newer
    Published<std::optional<std::string>> downloadURL;   ///< only when newer and an address
    Published<bool> isChecking{false};
    Published<bool> hasChecked{false}; ///< a check has succeeded since the start
    Timer timer;

    void start();
    /// `done` is called when the outcome is published. Checks may overlap; the last to finish
    /// decides.
    void check(std::function<void()> done = {});

private:
    void received(const HttpReply& reply);
    void publishUpdate(const std::string& version, const std::string& notes, std::string url);
    void publishNoUpdate();

    Platform& platform_;
    Logger log_;
    const ServiceRoots roots_ = ServiceRoots::fromEnvironment();
    Tasks requests_;
};

} // namespace orvelle
