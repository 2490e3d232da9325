#pragma once

#include "Platform/CameraService.h"
#include "Platform/RunLoop.h"

#include <string>
#include <vector>

namespace orvelle {

/// The cameras of the kernel, through a library of the program's own that is loaded when a camera
/// first starts: what it needs costs tens of megabytes. Whoever may open a camera's device is
/// authorized.
class LinuxCameraService : public CameraService {
public:
    struct Environment {
        std::string file; ///< a Y4M or MJPEG file that stands for the camera; empty for none
        std::string devices = "/dev"; ///< the folder of the devices

        /// With the file that ORVELLE_CAMERA_FILE names.
        static Environment ofProcess();
    };

    explicit LinuxCameraService(RunLoop& runLoop,
                                Environment environment = Environment::ofProcess());

    CameraAuthorizationStatus authorizationStatus() const override;
    Subscription requestAccess(std::function<void(bool granted)> completion) override;
    std::unique_ptr<CameraSession> makeSession(Configuration configuration) override;

private:
    std::vector<std::string> cameras() const;

    RunLoop& runLoop_;
    const Environment environment_;
};

} // namespace orvelle
