#include "Features/Mirror/MirrorManager.h"

#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

#include <atomic>
#include <utility>

namespace orvelle {

MirrorManager::MirrorManager(Platform& platform)
    : FeatureModule("mirror", "Mirror", std::string("person.crop.square"_symbol), false),
      platform_(platform), captureQueue_(platform.runLoop(), "com.orvelle.mirror.capture") {}

MirrorManager::~MirrorManager() {
    stopSession();
}

void MirrorManager::startSession() {
    if (isSessionRunning)
        return;
    auto& camera = platform_.camera();
    switch (camera.authorizationStatus()) {
    case CameraAuthorizationStatus::notDetermined:
        accessRequest_ = camera.requestAccess([this](bool granted) {
            hasPermission = granted;
            if (granted)
                setupAndRunSession();
        });
        break;
    case CameraAuthorizationStatus::authorized:
        hasPermission = true;
        setupAndRunSession();
        break;
    case CameraAuthorizationStatus::restricted:
    case CameraAuthorizationStatus::denied:
        hasPermission = false;
        break;
    }
}

void MirrorManager::setupAndRunSession() {
    if (isSessionRunning)
        return;
    CameraService::Configuration configuration;
    configuration.framesPerSecond = framesPerSecond;
    // A busy main thread is handed one frame at a time, not a heap of them.
    configuration.onFrame = [&runLoop = platform_.runLoop(),
                             isUnderWay = std::make_shared<std::atomic_bool>(false),
                             show = lifetime_.guard([this](Image frame) {
                                 latestFrame = std::move(frame);
                             })](Image frame) {
        if (isUnderWay->exchange(true))
            return;
        runLoop.post([isUnderWay, show, frame = std::move(frame)]() mutable {
            *isUnderWay = false;
            show(std::move(frame));
        });
    };
    captureSession_ = platform_.camera().makeSession(std::move(configuration));
    if (!captureSession_)
        return;
    isSessionRunning = true;
    captureQueue_.async([session = captureSession_] { session->startRunning(); });
}

void MirrorManager::stopSession() {
    accessRequest_.reset();
    if (!isSessionRunning)
        return;
    isSessionRunning = false;
    captureQueue_.async([session = std::move(captureSession_)] { session->stopRunning(); });
    captureSession_.reset();
    latestFrame = std::nullopt;
}

} // namespace orvelle
