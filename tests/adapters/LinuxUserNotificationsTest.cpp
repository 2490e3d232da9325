#include "Platform/Linux/LinuxUserNotifications.h"

#include "Platform/Qt/QtRunLoop.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <ctime>

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

TEST_F(LinuxUserNotificationsTest, ADaemonThatNeverAnswersHoldsNothingUp) {
    notifications.add({"first", "Title", "Body", false});
    ASSERT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 1; }));
    daemon.hang();
    for (int count = 0; count < 100; ++count) {
        QElapsedTimer clock;
        clock.start();
        notifications.add({"n", "Title", "Body", true});
        QCoreApplication::processEvents();
        EXPECT_LT(clock.elapsed(), 1000) << "a call that waits takes the daemon's whole silence";
    }
    daemon.wakeUp();
    EXPECT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 101; }));
}

TEST_F(LinuxUserNotificationsTest, ADaemonThatFloodsTheBusReachesNobodyHere) {
    notifications.add({"first", "Title", "Body", false});
    ASSERT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 1; }));
    daemon.addMethod(notificationService, QStringLiteral("Flood"), QString(), QString(),
                     QStringLiteral("for each in range(20000):\n"
                                    "    self.EmitSignal('org.freedesktop.Notifications', "
                                    "'ActionInvoked', 'us', [each, 'x' * 1000])"));
    daemon.call(notificationService, QStringLiteral("Flood"));
    timespec before{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &before);
    notifications.add({"second", "Title", "Body", false});
    EXPECT_TRUE(waitUntil([&] { return daemon.callCount(QStringLiteral("Notify")) == 2; }));
    timespec after{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &after);
    const auto worked = static_cast<double>(after.tv_sec - before.tv_sec) +
                        static_cast<double>(after.tv_nsec - before.tv_nsec) / 1e9;
    EXPECT_LT(worked, 0.2) << "of the main thread";
}

} // namespace
} // namespace orvelle
