#pragma once

#include "Foundation/Image.h"
#include "Foundation/Subscription.h"

#include <functional>
#include <memory>

namespace orvelle {

/// What the user lets the program do with the camera. The numbers are those of the permission's
/// record elsewhere.
enum class CameraAuthorizationStatus {
    notDetermined = 0,
    restricted = 1,
    denied = 2,
    authorized = 3
};

/// A camera that is set up. Destroying it stops it and waits for a frame under way.
class CameraSession {
public:
    virtual ~CameraSession() = default;

    /// Both wait for the device, up to seconds, and are called off the main thread, one at a time.
    /// A camera that fails to start gives no frames.
    virtual void startRunning() = 0;
    virtual void stopRunning() = 0;
};

/// The machine's cameras. Main thread only, and no call waits for a device.
class CameraService {
public:
    /// What is asked of a camera; where it has no such mode, it runs in its nearest.
    struct Configuration {
        int width = 480; ///< pixels
        int height = 360;
        double framesPerSecond = 15;
        /// Receives each picture, on a thread of the camera's. Pictures that come while it works
        /// are discarded.
        std::function<void(Image)> onFrame;
    };

    virtual ~CameraService() = default;

    /// Read afresh, without asking the user.
    virtual CameraAuthorizationStatus authorizationStatus() const = 0;
    /// Asks the user where the system has a question to ask; the answer comes later, never during
    /// the call, unless the handle is reset before.
    [[nodiscard]] virtual Subscription
    requestAccess(std::function<void(bool granted)> completion) = 0;

    /// Sets up the built-in camera at the user's side, else any other; null without a device.
    virtual std::unique_ptr<CameraSession> makeSession(Configuration configuration) = 0;
};

} // namespace orvelle
