#pragma once

#include "Platform/CameraService.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace orvelle {

/// A camera that shows the pictures of a Y4M or MJPEG file, over and over, at the rate asked for.
class FileCamera : public CameraSession {
public:
    FileCamera(std::string path, CameraService::Configuration configuration);
    ~FileCamera() override;

    void startRunning() override;
    void stopRunning() override;

private:
    void play();
    /// Until the next frame is due; false when it is to stop.
    bool waitForNext();

    const std::string path_;
    const CameraService::Configuration configuration_;
    std::thread thread_;
    std::mutex mutex_;
    std::condition_variable stopping_;
    bool isStopping_ = false;
};

} // namespace orvelle
