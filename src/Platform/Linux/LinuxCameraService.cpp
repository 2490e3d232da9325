#include "Platform/Linux/LinuxCameraService.h"

#include "Platform/Linux/CameraLibrary.h"
#include "Platform/Linux/FileCamera.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace orvelle {

namespace {

bool mayUse(const std::string& device) {
    return access(device.c_str(), R_OK | W_OK) == 0;
}

} // namespace

LinuxCameraService::Environment LinuxCameraService::Environment::ofProcess() {
    const char* file = std::getenv("ORVELLE_CAMERA_FILE");
    return {.file = file ? file : "", .devices = "/dev"};
}

LinuxCameraService::LinuxCameraService(RunLoop& runLoop, Environment environment)
    : runLoop_(runLoop), environment_(std::move(environment)) {}

std::vector<std::string> LinuxCameraService::cameras() const {
    std::vector<std::string> found;
    std::error_code failure;
    std::filesystem::directory_iterator entries(environment_.devices, failure);
    for (; !failure && entries != std::filesystem::directory_iterator(); entries.increment(failure))
        if (entries->path().filename().string().starts_with("video"))
            found.push_back(entries->path().string());
    return found;
}

CameraAuthorizationStatus LinuxCameraService::authorizationStatus() const {
    if (!environment_.file.empty())
        return CameraAuthorizationStatus::authorized;
    const auto devices = cameras();
    // Where there is no camera there is nothing to refuse.
    return devices.empty() || std::ranges::any_of(devices, mayUse)
               ? CameraAuthorizationStatus::authorized
               : CameraAuthorizationStatus::denied;
}

Subscription LinuxCameraService::requestAccess(std::function<void(bool granted)> completion) {
    return runLoop_.after(0, [this, completion = std::move(completion)] {
        completion(authorizationStatus() == CameraAuthorizationStatus::authorized);
    });
}

std::unique_ptr<CameraSession> LinuxCameraService::makeSession(Configuration configuration) {
    if (!environment_.file.empty())
        return std::make_unique<FileCamera>(environment_.file, std::move(configuration));
    if (std::ranges::none_of(cameras(), mayUse))
        return nullptr;
    return std::make_unique<LibraryCamera>(std::move(configuration));
}

} // namespace orvelle
