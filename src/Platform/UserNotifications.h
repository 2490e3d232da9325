#pragma once

#include <string>

namespace orvelle {

/// A notice, shown at once.
struct NotificationRequest {
    std::string identifier;
    std::string title;
    std::string body;      ///< plain text
    bool hasSound = false; ///< the desktop's default sound; without it the notice is silent
    bool operator==(const NotificationRequest&) const = default;
};

/// Notices that the desktop shows for the program.
class UserNotifications {
public:
    virtual ~UserNotifications() = default;
    /// Asks once for alerts and sounds; the answer changes nothing here.
    virtual void requestAuthorization() = 0;
    /// A notice that the desktop does not take is lost. Never waits.
    virtual void add(const NotificationRequest& request) = 0;
};

} // namespace orvelle
