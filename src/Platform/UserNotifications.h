#pragma once

namespace orvelle {

/// Notices that the desktop shows for the program.
class UserNotifications {
public:
    virtual ~UserNotifications() = default;
    /// Asks once for alerts and sounds; the answer changes nothing here.
    virtual void requestAuthorization() = 0;
};

} // namespace orvelle
