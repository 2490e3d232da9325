#include "Core/StatusBarMenu.h"

#include "Features/Battery/BatteryManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"
#include "Platform/Formatting.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

using Item = std::shared_ptr<MenuItem>;

Item separator() {
    return std::make_shared<MenuItem>();
}

Item command(std::string title, std::function<void()> perform, std::string keyEquivalent = {}) {
    auto item = std::make_shared<MenuItem>();
    item->kind = MenuItem::Kind::command;
    item->title = std::move(title);
    item->perform = std::move(perform);
    item->keyEquivalent = std::move(keyEquivalent);
    return item;
}

Item text(std::string title, std::string_view symbol) {
    auto item = std::make_shared<MenuItem>();
    item->kind = MenuItem::Kind::text;
    item->title = std::move(title);
    item->symbol = std::string(symbol);
    return item;
}

Item submenu(std::string title, Menu items) {
    auto item = std::make_shared<MenuItem>();
    item->kind = MenuItem::Kind::submenu;
    item->title = std::move(title);
    item->items = std::move(items);
    return item;
}

} // namespace

StatusBarMenu::StatusBarMenu(Commands commands, const SystemMonitorManager& systemMonitor,
                             const BatteryManager& battery, Platform& platform)
    : platform_(platform), battery_(battery),
      updateMenuItem_(command("Check for Updates...", std::move(commands.checkForUpdates))),
      sysInfoCPUItem_(text("CPU: --", "cpu"_symbol)),
      sysInfoMemItem_(text("Memory: --", "memorychip"_symbol)),
      sysInfoNetUpItem_(text("Upload: --", "arrow.up"_symbol)),
      sysInfoNetDownItem_(text("Download: --", "arrow.down"_symbol)),
      sysInfoTempItem_(text("CPU Temp: --", "thermometer.medium"_symbol)),
      sysInfoBatteryItem_(text("Battery: --", "battery.100"_symbol)),
      items_{
          command("Show Orvelle", std::move(commands.showNotch), "n"),
          separator(),
          submenu("System Info", {sysInfoCPUItem_, sysInfoMemItem_, separator(), sysInfoNetUpItem_,
                                  sysInfoNetDownItem_, separator(), sysInfoTempItem_, separator(),
                                  sysInfoBatteryItem_}),
          separator(),
          command("Settings...", std::move(commands.openSettings), ","),
          command("Run Setup Wizard...", std::move(commands.runSetupWizard)),
          command("Report a Bug...", std::move(commands.reportBug)),
          updateMenuItem_,
          separator(),
          command("Quit Orvelle", std::move(commands.quitApp), "q"),
      } {
    sysInfoCancellable_ = systemMonitor.metrics.observe([this](const SystemMetrics& metrics) {
        platform_.runLoop().post(
            lifetime_.guard([this, metrics] { updateSystemInfoMenu(metrics); }));
    });
}

void StatusBarMenu::showUpdate(const std::string& version) {
    updateMenuItem_->title = "Update Available: v" + version;
}

bool StatusBarMenu::performShortcut(std::string_view key) const {
    const auto found = std::ranges::find_if(items_, [key](const Item& item) {
        return item->perform && !key.empty() && item->keyEquivalent == key;
    });
    if (found == items_.end())
        return false;
    (*found)->perform();
    return true;
}

void StatusBarMenu::updateSystemInfoMenu(const SystemMetrics& metrics) {
    const auto bytes = [this](std::uint64_t count) {
        return platform_.formatting().memoryByteCount(count);
    };
    sysInfoCPUItem_->title = format("CPU: %.1f%%", metrics.cpuUsage);
    sysInfoMemItem_->title = format("Memory: %.1f%% (", metrics.memoryUsage) +
                             bytes(metrics.memoryUsed) + " / " + bytes(metrics.memoryTotal) + ")";
    sysInfoNetUpItem_->title = "Upload: " + bytes(metrics.networkUpload) + "/s";
    sysInfoNetDownItem_->title = "Download: " + bytes(metrics.networkDownload) + "/s";
    sysInfoTempItem_->title = metrics.cpuTemperature
                                  ? format("CPU Temp: %.0f°C", *metrics.cpuTemperature)
                                  : "CPU Temp: unavailable";
    updateBatteryItem();
}

void StatusBarMenu::updateBatteryItem() {
    if (!battery_.hasBattery) {
        sysInfoBatteryItem_->title = "Power: AC (no battery)";
        sysInfoBatteryItem_->symbol = std::string("powerplug.fill"_symbol);
        return;
    }
    sysInfoBatteryItem_->title = "Battery: " + std::to_string(battery_.batteryLevel.get()) +
                                 "% — " + std::string(battery_.statusString());
    sysInfoBatteryItem_->symbol = std::string(battery_.batteryIcon());
}

} // namespace orvelle
