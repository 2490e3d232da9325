#pragma once

#include "Platform/CameraService.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvelle {

/// One camera, which shows what it is told to.
class SimulatedCameraService : public CameraService {
public:
    /// What happened, in order.
    enum class Step { made, started, stopped };

    explicit SimulatedCameraService(RunLoop& runLoop) : runLoop_(runLoop) {}

    CameraAuthorizationStatus status = CameraAuthorizationStatus::authorized;
    CameraAuthorizationStatus statusAfterRequest = CameraAuthorizationStatus::authorized;
    bool hasDevice = true;
    int accessRequests = 0;
    std::vector<Step> steps;
    Configuration configuration; ///< of the latest session
    /// Called with the configuration of each session that starts, so that a demonstration can show
    /// a picture.
    std::function<void(const Configuration&)> onStart;

    CameraAuthorizationStatus authorizationStatus() const override { return status; }
    Subscription requestAccess(std::function<void(bool)> completion) override {
        ++accessRequests;
        return runLoop_.after(0, [this, completion = std::move(completion)] {
            status = statusAfterRequest;
            completion(status == CameraAuthorizationStatus::authorized);
        });
    }
    std::unique_ptr<CameraSession> makeSession(Configuration wanted) override {
        if (!hasDevice)
            return nullptr;
        steps.push_back(Step::made);
        configuration = std::move(wanted);
        return std::make_unique<Session>(*this);
    }

private:
    class Session : public CameraSession {
    public:
        explicit Session(SimulatedCameraService& camera) : camera_(camera) {}
        void startRunning() override {
            camera_.steps.push_back(Step::started);
            if (camera_.onStart)
                camera_.onStart(camera_.configuration);
        }
        void stopRunning() override { camera_.steps.push_back(Step::stopped); }

    private:
        SimulatedCameraService& camera_;
    };

    RunLoop& runLoop_;
};

} // namespace orvelle
