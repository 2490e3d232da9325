#pragma once

#include "Platform/Platform.h"
#include "Platform/StatusBar.h"

namespace orvelle {

class BatteryManager;
struct SystemMetrics;
class SystemMonitorManager;

/// The status item's menu: the program's commands, and the machine's load in lines that follow it.
class StatusBarMenu {
public:
    struct Commands {
        std::function<void()> showNotch;
        std::function<void()> openSettings;
        std::function<void()> runSetupWizard;
        std::function<void()> reportBug;
        std::function<void()> checkForUpdates;
        std::function<void()> quitApp;
    };

    /// The managers must outlive the menu.
    StatusBarMenu(Commands commands, const SystemMonitorManager& systemMonitor,
                  const BatteryManager& battery, Platform& platform = Platform::shared());

    const Menu& items() const { return items_; }
    void showUpdate(const std::string& version);
    /// The command with this key equivalent; false when none has it.
    bool performShortcut(std::string_view key) const;

private:
    using Item = std::shared_ptr<MenuItem>;

    void updateSystemInfoMenu(const SystemMetrics& metrics);
    void updateBatteryItem();

    Platform& platform_;
    const BatteryManager& battery_;
    Item updateMenuItem_;
    Item sysInfoCPUItem_;
    Item sysInfoMemItem_;
    Item sysInfoNetUpItem_;
    Item sysInfoNetDownItem_;
    Item sysInfoTempItem_;
    Item sysInfoBatteryItem_;
    Menu items_;
    Subscription sysInfoCancellable_;
    Lifetime lifetime_;
};

} // namespace orvelle
