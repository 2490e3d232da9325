#include "Platform/Linux/LinuxPlatform.h"

#include <QDBusConnection>
#include <QStandardPaths>

namespace orvelle {

namespace {

std::string kdeSettingsFile() {
    return (QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
            QStringLiteral("/kdeglobals"))
        .toStdString();
}

} // namespace

LinuxPlatform::LinuxPlatform()
    : appearance_(runLoop_, &QDBusConnection::sessionBus, kdeSettingsFile()),
      powerSources_(runLoop_, &QDBusConnection::systemBus),
      processLauncher_(runLoop_, log_, &QDBusConnection::systemBus, &QDBusConnection::sessionBus,
                       qEnvironmentVariable("XDG_SESSION_ID")),
      fileViewer_(runLoop_, log_, workspace_, &QDBusConnection::sessionBus) {}

LinuxPlatform::~LinuxPlatform() {
    userDefaults_.flush();
}

} // namespace orvelle
