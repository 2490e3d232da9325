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
    : scriptExecutor_(&QDBusConnection::sessionBus, urlData_),
      appearance_(runLoop_, &QDBusConnection::sessionBus, kdeSettingsFile()),
      players_(runLoop_, &QDBusConnection::sessionBus),
      powerSources_(runLoop_, &QDBusConnection::systemBus),
      processLauncher_(runLoop_, log_, &QDBusConnection::systemBus, &QDBusConnection::sessionBus,
                       qEnvironmentVariable("XDG_SESSION_ID")) {}

LinuxPlatform::~LinuxPlatform() {
    userDefaults_.flush();
    scriptExecutor_.end();
    urlData_.end();
}

} // namespace orvelle
