#include "Platform/Linux/LinuxUserNotifications.h"

#include "Platform/Qt/QtRunLoop.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const QString notificationService = QStringLiteral("org.freedesktop.Notifications");
const QString notificationPath = QStringLiteral("/org/freedesktop/Notifications");

class LinuxUserNotificationsTest : public testing::Test {
protected:
    PrivateBus bus;
    MockService daemon{bus, notificationService, notificationPath,
                       MockService::fromTemplate(QStringLiteral("notification_daemon"))};
    QtRunLoop runLoop;
    LinuxUserNotifications notifications{runLoop, bus.provider()};
};

TEST_F(LinuxUserNotificationsTest, NothingIsAskedOfTheBusBeforeTheFirstNotice) {
    notifications.requestAuthorization();
    EXPECT_EQ(bus.connectionCount(), 0);
}

TEST_F(LinuxUserNotificationsTest, ANoticeReachesTheDesktop) {
    notifications.add({"pomodoro-1", "Work Session Complete", "Time for a break!", true});
    EXPECT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 1; }));
    notifications.add({"pomodoro-2", "Break Over", "", false});
    EXPECT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 2; }));
    EXPECT_EQ(bus.connectionCount(), 1);
}

TEST_F(LinuxUserNotificationsTest, NoticesOfTheSameMomentAllArrive) {
    for (int count = 0; count < 3; ++count)
        notifications.add({"n", "Title", "Body", false});
    EXPECT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 3; }));
    EXPECT_EQ(bus.connectionCount(), 1);
}

} // namespace
} // namespace orvelle
