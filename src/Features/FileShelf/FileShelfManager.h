#pragma once

#include "Models/ShelfItem.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <vector>

namespace orvelle {

/// A temporary tray of files in the notch.
class FileShelfManager : public FeatureModule {
public:
    static constexpr Seconds cleanupInterval = 300;

    explicit FileShelfManager(Platform& platform = Platform::shared());

    Published<std::vector<ShelfItem>> items; ///< in order of adding
    Timer cleanupTimer;

    void start() override;

    /// Lets go of the items whose time is over.
    void cleanupExpired();

private:
    Platform& platform_;
};

} // namespace orvelle
