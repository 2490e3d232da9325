#include "Features/Battery/BatteryActions.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

using namespace orvelle;

using Launches = decltype(SimulatedProcessLauncher::launched);

TEST(BatteryActions, LockScreenSuspendsTheSession) {
    SimulatedPlatform platform;
    BatteryActions::lockScreen(platform);
    EXPECT_EQ(platform.processLauncherPort.launched,
              (Launches{{"/System/Library/CoreServices/Menu Extras/User.menu/Contents/Resources/"
                         "CGSession",
                         {"-suspend"}}}));
    EXPECT_TRUE(platform.workspacePort.opened.empty());
}

TEST(BatteryActions, SleepDisplayLaunchesThePowerTool) {
    SimulatedPlatform platform;
    BatteryActions::sleepDisplay(platform);
    EXPECT_EQ(platform.processLauncherPort.launched,
              (Launches{{"/usr/bin/pmset", {"displaysleepnow"}}}));
}

TEST(BatteryActions, OpenEnergySettingsOpensTheSettingsPage) {
    SimulatedPlatform platform;
    BatteryActions::openEnergySettings(platform);
    EXPECT_EQ(platform.workspacePort.opened,
              std::vector<std::string>{"x-apple.systempreferences:com.apple.settings.battery"});
    EXPECT_TRUE(platform.processLauncherPort.launched.empty());
}
