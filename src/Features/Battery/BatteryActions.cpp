#include "Features/Battery/BatteryActions.h"

#include "Platform/ProcessLauncher.h"
#include "Platform/Workspace.h"

namespace orvelle::BatteryActions {

void lockScreen(Platform& platform) {
    platform.processLauncher().launch(
        "/System/Library/CoreServices/Menu Extras/User.menu/Contents/Resources/CGSession",
        {"-suspend"});
}

void sleepDisplay(Platform& platform) {
    platform.processLauncher().launch("/usr/bin/pmset", {"displaysleepnow"});
}

void openEnergySettings(Platform& platform) {
    platform.workspace().open("x-apple.systempreferences:com.apple.settings.battery");
}

} // namespace orvelle::BatteryActions
