#pragma once

#include "Core/SerialQueue.h"
#include "Foundation/Image.h"
#include "Platform/CameraService.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <memory>
#include <optional>

namespace orvelle {

/// The camera as a small mirror; off by default. The camera runs only between `startSession` and
/// `stopSession`, that is, while the mirror's panel is shown.
class MirrorManager : public FeatureModule {
public:
    static constexpr double framesPerSecond = 15;

    explicit MirrorManager(Platform& platform = Platform::shared());
    ~MirrorManager() override;

    Published<std::optional<Image>> latestFrame;
    Published<bool> isMirrored{true}; ///< left and right flipped in the view; not stored
    Published<bool> hasPermission{false};
    bool isSessionRunning = false;

    /// Asks for permission where it was not asked yet, and runs the camera once it is given. A
    /// camera that cannot be set up leaves the session stopped, without a word.
    void startSession();
    /// Also gives up a question for permission, so that no camera starts that nobody looks at.
    void stopSession();

private:
    void setupAndRunSession();

    Platform& platform_;
    std::shared_ptr<CameraSession> captureSession_;
    SerialQueue captureQueue_;
    Subscription accessRequest_;
    Lifetime lifetime_;
};

} // namespace orvelle
