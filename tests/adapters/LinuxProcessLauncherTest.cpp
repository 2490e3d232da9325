#include "Platform/Linux/LinuxProcessLauncher.h"

#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QDBusVariant>

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string lockTool =
    "/System/Library/CoreServices/Menu Extras/User.menu/Contents/Resources/CGSession";
const QString loginName = QStringLiteral("org.freedesktop.login1");
const QString loginPath = QStringLiteral("/org/freedesktop/login1");
const QString managerName = QStringLiteral("org.freedesktop.login1.Manager");

/// A login manager whose one session stands at its own path.
class LoginManager : public MockService {
public:
    explicit LoginManager(PrivateBus& bus)
        : MockService(bus, loginName, loginPath, empty(loginName, loginPath, managerName)) {
        addMethod(QStringLiteral("org.freedesktop.login1.Session"), QStringLiteral("Lock"),
                  QString(), QString(), QString());
    }
    void findBy(const QString& method, const QString& input) {
        addMethod(managerName, method, input, QStringLiteral("o"),
                  QStringLiteral("ret = '/org/freedesktop/login1'"));
    }
};

class LinuxProcessLauncherTest : public testing::Test {
protected:
    LinuxProcessLauncher makeLauncher(const char* sessionId) {
        return {loop, log, systemBus.provider(), sessionBus.provider(),
                QString::fromLatin1(sessionId)};
    }
    template <class Condition>
    bool wait(Condition condition) {
        return waitUntil([&] {
            loop.runPosted();
            return condition();
        });
    }

    PrivateBus systemBus;
    PrivateBus sessionBus;
    SimulatedRunLoop loop;
    SimulatedLog log;
};

TEST_F(LinuxProcessLauncherTest, LocksTheSessionOfTheEnvironment) {
    LoginManager login(systemBus);
    login.findBy(QStringLiteral("GetSession"), QStringLiteral("s"));
    auto launcher = makeLauncher("7");
    launcher.launch(lockTool, {"-suspend"});
    EXPECT_EQ(systemBus.connectionCount(), 0) << "connecting may wait";
    EXPECT_TRUE(wait([&] { return login.callCount(QStringLiteral("Lock")) == 1; }));
}

TEST_F(LinuxProcessLauncherTest, LocksTheSessionOfTheProcessWithoutAnEnvironment) {
    LoginManager login(systemBus);
    login.findBy(QStringLiteral("GetSessionByPID"), QStringLiteral("u"));
    auto launcher = makeLauncher("");
    launcher.launch(lockTool, {"-suspend"});
    EXPECT_TRUE(wait([&] { return login.callCount(QStringLiteral("Lock")) == 1; }));
}

TEST_F(LinuxProcessLauncherTest, LocksThroughTheScreenSaverWithoutALoginManager) {
    MockService saver(sessionBus, QStringLiteral("org.freedesktop.ScreenSaver"),
                      QStringLiteral("/ScreenSaver"),
                      MockService::empty(QStringLiteral("org.freedesktop.ScreenSaver"),
                                         QStringLiteral("/ScreenSaver"),
                                         QStringLiteral("org.freedesktop.ScreenSaver")));
    saver.addMethod(QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("Lock"),
                    QString(), QString(), QString());
    auto launcher = makeLauncher("7");
    launcher.launch(lockTool, {"-suspend"});
    EXPECT_TRUE(wait([&] { return saver.callCount(QStringLiteral("Lock")) == 1; }));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LinuxProcessLauncherTest, NothingThatLocksIsLogged) {
    auto launcher = makeLauncher("");
    launcher.launch(lockTool, {"-suspend"});
    EXPECT_TRUE(wait([&] { return log.lines.size() == 1; }));
    EXPECT_TRUE(log.lines.front().message.starts_with("Nothing here locks the screen"));
}

TEST_F(LinuxProcessLauncherTest, TheDesktopPutsTheDisplayToSleepAfterTheClick) {
    const auto name = QStringLiteral("org.gnome.Mutter.DisplayConfig");
    const auto path = QStringLiteral("/org/gnome/Mutter/DisplayConfig");
    MockService display(sessionBus, name, path, MockService::empty(name, path, name));
    display.call(QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("AddProperty"),
                 {name, QStringLiteral("PowerSaveMode"), QVariant::fromValue(QDBusVariant(0))});
    const auto mode = [&] {
        const auto answer =
            display.call(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                         {name, QStringLiteral("PowerSaveMode")});
        return answer.value(0).value<QDBusVariant>().variant().toInt();
    };
    auto launcher = makeLauncher("");
    launcher.launch("/usr/bin/pmset", {"displaysleepnow"});
    loop.runPosted();
    EXPECT_EQ(sessionBus.connectionCount(), 0);
    loop.advance(DisplaySleep::delay);
    EXPECT_TRUE(wait([&] { return mode() == 3; }));
}

TEST_F(LinuxProcessLauncherTest, AProgramOfThisMachineIsStarted) {
    TemporaryFolder folder;
    folder.writeProgram("tool");
    auto launcher = makeLauncher("");
    launcher.launch(folder.path("tool"), {"one", "two words"});
    EXPECT_TRUE(wait([&] { return std::filesystem::exists(folder.path("started")); }));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LinuxProcessLauncherTest, WhatIsUnknownDoesNothingAndIsLoggedOnce) {
    auto launcher = makeLauncher("");
    launcher.launch("/usr/bin/pmset", {"sleepnow"});
    launcher.launch("/usr/bin/pmset", {"sleepnow"});
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines.front().message, "Cannot launch /usr/bin/pmset");
    EXPECT_EQ(log.lines.front().level, LogLevel::error);
}

} // namespace
} // namespace orvelle
