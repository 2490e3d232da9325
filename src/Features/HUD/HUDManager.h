#pragma once

#include "Models/NotchState.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <memory>

namespace orvelle {

class AudioHardware;
class DisplayBrightness;

/// Notices changes of the system's output volume and of the screen's brightness, and turns each
/// into a short level display in the notch.
///
/// The program builds it without a notch state, on purpose: the figures are kept for the media
/// panel, and the level display stays off.
class HUDManager : public FeatureModule, public HUDInterceptor {
public:
    static constexpr Seconds brightnessInterval = 0.3; ///< brightness has no change notification
    static constexpr float brightnessThreshold = 0.01F;
    static constexpr Seconds hideDelay = 2.0; ///< counted anew from each event

    /// Without a notch state nothing is ever shown.
    explicit HUDManager(std::weak_ptr<NotchState> notchState = {},
                        Platform& platform = Platform::shared());

    Published<float> currentVolume{0};     ///< 0 to 1
    Published<float> currentBrightness{0}; ///< 0 to 1
    std::weak_ptr<NotchState> notchState;
    bool isMonitoring = false; ///< guards against a second start

    void start() override;
    void stop() override;
    void startIntercepting() override;
    /// What is shown at this moment stays shown.
    void stopIntercepting() override;

    /// Of the default output device; 0 when it cannot be read.
    static float getSystemVolume(AudioHardware& audio);
    /// Clamped to 0 to 1. The volume that is shown follows by the listener.
    static void setSystemVolume(AudioHardware& audio, float value);
    /// Of the last display that answers; 0.5 when none does.
    static float getScreenBrightness(DisplayBrightness& displays);

private:
    void startVolumeListener();
    void stopVolumeListener();
    void volumeChanged();
    void startBrightnessPolling();
    void checkBrightness();
    void showHUD(HUDType type, float value);
    void hideHUD();

    Platform& platform_;
    Timer hideTimer_;
    Timer brightnessTimer_;
    /// Added for the device that was the default at that moment; the platform may let it follow.
    Subscription volumeListener_;
    float lastBrightness_ = -1; ///< the last value that counted as a change
    bool initialVolumeSet_ = false;
};

} // namespace orvelle
