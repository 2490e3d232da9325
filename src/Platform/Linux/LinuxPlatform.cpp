#include "Platform/Linux/LinuxPlatform.h"

#include <QCoreApplication>
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
    : scriptExecutor_(&QDBusConnection::sessionBus, covers_),
      appearance_(runLoop_, &QDBusConnection::sessionBus, kdeSettingsFile()),
      locationService_(runLoop_, &QDBusConnection::systemBus),
      players_(runLoop_, &QDBusConnection::sessionBus),
      loginItem_(fileSystem_, log_, QCoreApplication::applicationFilePath().toStdString()),
      powerSources_(runLoop_, &QDBusConnection::systemBus),
      processLauncher_(runLoop_, log_, &QDBusConnection::systemBus, &QDBusConnection::sessionBus,
                       qEnvironmentVariable("XDG_SESSION_ID")),
      userNotifications_(runLoop_, &QDBusConnection::sessionBus),
      fileViewer_(runLoop_, log_, workspace_, &QDBusConnection::sessionBus) {}

LinuxPlatform::~LinuxPlatform() {
    userDefaults_.flush();
    scriptExecutor_.end();
    urlData_.end();
}

} // namespace orvelle
