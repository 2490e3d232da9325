#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/UserNotifications.h"

#include <QObject>

#include <optional>
#include <vector>

namespace orvelle {

/// The desktop's notification service, org.freedesktop.Notifications. It shows every program's
/// notices without asking for leave.
class LinuxUserNotifications : public UserNotifications {
public:
    /// Nothing is asked of the bus before the first notice.
    LinuxUserNotifications(RunLoop& runLoop, BusProvider sessionBus);

    void requestAuthorization() override {}
    void add(const NotificationRequest& request) override;

private:
    void send(const NotificationRequest& request);

    RunLoop& runLoop_;
    BusProvider bus_;
    std::optional<QDBusConnection> connection_;
    std::vector<NotificationRequest> waiting_; ///< for the connection
    Subscription connecting_;
    QObject context_;
};

} // namespace orvelle
