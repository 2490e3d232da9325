#pragma once

#include "Platform/UserNotifications.h"

namespace orvelle {

/// The desktop's notification service shows every program's notices without asking for leave.
class LinuxUserNotifications : public UserNotifications {
public:
    void requestAuthorization() override {}
};

} // namespace orvelle
