#include "Platform/Linux/CameraLibrary.h"

#include <QCoreApplication>
#include <QLibrary>

#include <utility>

namespace orvelle {

namespace {

/// Beside the program in the build, in the libraries' folder once it is installed.
MakeCameraSession* findLibrary() {
    for (const auto* folder : {"/", "/../lib/orvelle/"}) {
        QLibrary library(QCoreApplication::applicationDirPath() + QLatin1String(folder) +
                         QStringLiteral("liborvelle-camera.so"));
        if (const auto function = library.resolve(makeCameraSessionName))
            return reinterpret_cast<MakeCameraSession*>(function);
    }
    return nullptr;
}

} // namespace

LibraryCamera::LibraryCamera(CameraService::Configuration configuration)
    : configuration_(std::move(configuration)) {}

void LibraryCamera::startRunning() {
    static MakeCameraSession* const make = findLibrary();
    if (!session_ && make)
        session_.reset(make(configuration_));
    if (session_)
        session_->startRunning();
}

void LibraryCamera::stopRunning() {
    if (session_)
        session_->stopRunning();
}

} // namespace orvelle
