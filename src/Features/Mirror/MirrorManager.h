#pragma once

#include "Foundation/Image.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <optional>

namespace orvelle {

/// The camera as a small mirror; off by default.
class MirrorManager : public FeatureModule {
public:
    explicit MirrorManager(Platform& platform = Platform::shared());

    Published<std::optional<Image>> latestFrame;
    Published<bool> isMirrored{true}; ///< left and right flipped in the view
    Published<bool> hasPermission{false};
    bool isSessionRunning = false;

    void stopSession();
};

} // namespace orvelle
