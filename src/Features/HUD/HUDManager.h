#pragma once

#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <memory>

namespace orvelle {

class NotchState;

/// Notices changes of volume and brightness.
class HUDManager : public FeatureModule, public HUDInterceptor {
public:
    /// Without a notch state the manager keeps its figures and shows nothing.
    explicit HUDManager(std::weak_ptr<NotchState> notchState = {},
                        Platform& platform = Platform::shared());

    Published<bool> isIntercepting{false};
    Published<float> currentVolume{0};     ///< 0 to 1
    Published<float> currentBrightness{0}; ///< 0 to 1
    bool isMonitoring = false;

    bool intercepting() const override { return isIntercepting; }
    void startIntercepting() override;
    void stopIntercepting() override;
};

} // namespace orvelle
