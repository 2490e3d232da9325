#pragma once

#include "Foundation/Published.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <optional>
#include <string>

namespace orvelle {

/// Compares the running version with the maker's manifest.
class UpdateChecker {
public:
    explicit UpdateChecker(Platform& platform = Platform::shared());

    Published<bool> updateAvailable{false};
    Published<std::optional<std::string>> latestVersion; ///< only when newer
    Published<std::optional<std::string>> releaseNotes;  ///< only when newer
    Published<std::optional<std::string>> downloadURL;
    Published<bool> isChecking{false};
    Timer timer;

    void start();
    void check(std::function<void()> done = {});
};

} // namespace orvelle
