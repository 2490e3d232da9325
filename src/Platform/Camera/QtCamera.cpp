#include "Platform/Camera/QtCamera.h"

#include <QCamera>
#include <QCameraDevice>
#include <QImage>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QVideoFrame>
#include <QVideoSink>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace orvelle {

namespace {

/// The camera at the user's side of the screen, else the system's first choice.
QCameraDevice findDevice() {
    for (const auto& device : QMediaDevices::videoInputs())
        if (device.position() == QCameraDevice::FrontFace)
            return device;
    return QMediaDevices::defaultVideoInput();
}

/// The smallest deviation from the wanted size counts, then the slowest rate that suffices.
QCameraFormat nearestFormat(const QCameraDevice& device,
                            const CameraService::Configuration& wanted) {
    const auto badness = [&](const QCameraFormat& format) {
        const auto size = format.resolution();
        const int deviation =
            std::abs(size.width() - wanted.width) + std::abs(size.height() - wanted.height);
        const double rate = format.maxFrameRate();
        return std::pair(deviation, rate < wanted.framesPerSecond ? 1000 - rate : rate);
    };
    const auto formats = device.videoFormats();
    const auto best =
        std::min_element(formats.begin(), formats.end(), [&](const auto& one, const auto& other) {
            return badness(one) < badness(other);
        });
    return best == formats.end() ? QCameraFormat() : *best;
}

} // namespace

QtCameraWorker::QtCameraWorker(const CameraService::Configuration& configuration)
    : configuration_(configuration) {}

QtCameraWorker::~QtCameraWorker() {
    if (camera_)
        camera_->stop();
    session_.reset(); // before what it connects
}

void QtCameraWorker::start() {
    const auto device = findDevice();
    if (device.isNull())
        return;
    camera_ = std::make_unique<QCamera>(device);
    camera_->setCameraFormat(nearestFormat(device, configuration_));
    sink_ = std::make_unique<QVideoSink>();
    session_ = std::make_unique<QMediaCaptureSession>();
    session_->setCamera(camera_.get());
    session_->setVideoSink(sink_.get());
    // Frames come from a thread of the library's.
    connect(
        sink_.get(), &QVideoSink::videoFrameChanged, this,
        [this](const QVideoFrame& frame) { take(frame); }, Qt::QueuedConnection);
    camera_->start();
}

void QtCameraWorker::take(const QVideoFrame& frame) {
    // Few cameras can be slowed down: frames between two that are wanted are discarded.
    const double interval = 1000 / configuration_.framesPerSecond;
    constexpr double tolerance = 0.75;
    if (sinceFrame_.isValid() && static_cast<double>(sinceFrame_.elapsed()) < tolerance * interval)
        return;
    // A slow turn of this thread leaves older frames waiting; the newest is the one to show.
    const auto newest = sink_->videoFrame();
    auto picture = (newest.isValid() ? newest : frame).toImage();
    if (picture.isNull())
        return;
    sinceFrame_.start();
    if (picture.width() > 2 * configuration_.width)
        picture = picture.scaledToWidth(configuration_.width);
    picture.convertTo(QImage::Format_RGBA8888);
    configuration_.onFrame(
        Image(picture.width(), picture.height(),
              std::vector<std::uint8_t>(picture.constBits(),
                                        picture.constBits() + picture.sizeInBytes())));
}

QtCamera::QtCamera(CameraService::Configuration configuration)
    : configuration_(std::move(configuration)) {}

QtCamera::~QtCamera() {
    stopRunning();
}

void QtCamera::startRunning() {
    if (thread_.isRunning())
        return;
    thread_.setObjectName(QStringLiteral("com.orvelle.mirror.capture"));
    thread_.start();
    worker_ = new QtCameraWorker(configuration_);
    worker_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    QMetaObject::invokeMethod(
        worker_, [worker = worker_] { worker->start(); }, Qt::BlockingQueuedConnection);
}

void QtCamera::stopRunning() {
    thread_.quit();
    thread_.wait();
    worker_ = nullptr;
}

} // namespace orvelle

extern "C" Q_DECL_EXPORT orvelle::CameraSession*
orvelleMakeCameraSession(const orvelle::CameraService::Configuration& configuration) {
    return new orvelle::QtCamera(configuration);
}
