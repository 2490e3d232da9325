#pragma once

#include "Platform/CameraService.h"

#include <memory>

namespace orvelle {

/// The one function of the library "orvelle-camera", by this name in C: makes a session, null
/// without a camera. The caller owns it.
using MakeCameraSession = CameraSession*(const CameraService::Configuration& configuration);
inline constexpr const char* makeCameraSessionName = "orvelleMakeCameraSession";

/// A camera behind that library, which is loaded when the first camera starts and stays loaded.
/// Without the library there are no frames.
class LibraryCamera : public CameraSession {
public:
    explicit LibraryCamera(CameraService::Configuration configuration);

    void startRunning() override;
    void stopRunning() override;

private:
    const CameraService::Configuration configuration_;
    std::unique_ptr<CameraSession> session_;
};

} // namespace orvelle
