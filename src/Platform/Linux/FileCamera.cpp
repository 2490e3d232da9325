#include "Platform/Linux/FileCamera.h"

#include "Platform/Linux/MjpegReader.h"
#include "Platform/Linux/Y4mReader.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace orvelle {

namespace {

/// The file's pictures one after the other; empty for a file of another kind.
std::function<std::optional<Image>()> openFile(const std::string& path) {
    if (const auto reader = std::make_shared<Y4mReader>(path); reader->isValid())
        return [reader] { return reader->next(); };
    if (const auto reader = std::make_shared<MjpegReader>(path); reader->isValid())
        return [reader] { return reader->next(); };
    return {};
}

} // namespace

FileCamera::FileCamera(std::string path, CameraService::Configuration configuration)
    : path_(std::move(path)), configuration_(std::move(configuration)) {}

FileCamera::~FileCamera() {
    stopRunning();
}

void FileCamera::startRunning() {
    if (thread_.joinable())
        return;
    isStopping_ = false;
    thread_ = std::thread([this] { play(); });
}

void FileCamera::stopRunning() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
    }
    stopping_.notify_all();
    thread_.join();
}

void FileCamera::play() {
    const auto next = openFile(path_);
    if (!next)
        return;
    do {
        auto frame = next();
        if (!frame)
            return;
        configuration_.onFrame(*std::move(frame));
    } while (waitForNext());
}

bool FileCamera::waitForNext() {
    std::unique_lock lock(mutex_);
    return !stopping_.wait_for(lock,
                               std::chrono::duration<double>(1 / configuration_.framesPerSecond),
                               [this] { return isStopping_; });
}

} // namespace orvelle
