#pragma once

#include "Platform/LoginItem.h"
#include "Platform/Platform.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

namespace orvelle {

/// Has the desktop start the program at login, or no longer, and stores the choice. False when the
/// desktop refuses; nothing is stored then.
inline bool setLaunchAtLogin(Platform& platform, bool enabled) {
    auto& item = platform.loginItem();
    const bool isDone = enabled ? item.enroll() : item.withdraw();
    if (isDone)
        platform.userDefaults().set(Settings::launchAtLogin.name, enabled);
    return isDone;
}

} // namespace orvelle
