#pragma once

#include "Platform/CameraService.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThread>

#include <memory>

class QCamera;
class QMediaCaptureSession;
class QVideoFrame;
class QVideoSink;

namespace orvelle {

/// The camera itself, on a thread of its own.
class QtCameraWorker : public QObject {
public:
    explicit QtCameraWorker(const CameraService::Configuration& configuration);
    ~QtCameraWorker() override;

    void start();

private:
    void take(const QVideoFrame& frame);

    const CameraService::Configuration configuration_;
    // Made by `start`, so that they live on its thread.
    std::unique_ptr<QMediaCaptureSession> session_;
    std::unique_ptr<QVideoSink> sink_;
    std::unique_ptr<QCamera> camera_;
    QElapsedTimer sinceFrame_;
};

class QtCamera : public CameraSession {
public:
    explicit QtCamera(CameraService::Configuration configuration);
    ~QtCamera() override;

    void startRunning() override;
    void stopRunning() override;

private:
    const CameraService::Configuration configuration_;
    QThread thread_;
    QtCameraWorker* worker_ = nullptr; ///< lives and dies on the thread
};

} // namespace orvelle
