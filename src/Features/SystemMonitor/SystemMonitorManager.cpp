#include "Features/SystemMonitor/SystemMonitorManager.h"

#include "Features/SystemMonitor/SMCTemperature.h"
#include "Models/Symbol.h"

#include <algorithm>
#include <string_view>

namespace orvelle {

namespace {

/// Wired and wireless, loopback, tunnels: all traffic of the machine's programs.
constexpr std::string_view countedInterfaces[] = {"en", "lo", "utun"};

bool isCounted(std::string_view name) {
    return std::ranges::any_of(
        countedInterfaces, [name](std::string_view prefix) { return name.starts_with(prefix); });
}

/// Counters fall when they wrap at 32 bits or when an interface goes away.
std::uint64_t growth(std::uint64_t now, std::uint64_t before) {
    return now > before ? now - before : 0;
}

bool hasFallen(const ProcessorTicks& now, const ProcessorTicks& before) {
    return now.user < before.user || now.system < before.system || now.idle < before.idle ||
           now.nice < before.nice;
}

std::uint64_t perSecond(std::uint64_t amount, Seconds interval) {
    return static_cast<std::uint64_t>(static_cast<double>(amount) / interval);
}

} // namespace

SystemMonitorManager::SystemMonitorManager(Platform& platform)
    : FeatureModule("systemMonitor", "System Monitor", std::string("cpu"_symbol)),
      platform_(platform) {
    metrics.update([&](auto& value) { value.lastUpdated = platform_.runLoop().now(); });
}

void SystemMonitorManager::start() {
    if (!isEnabled)
        return;
    previousCPUInfo = readCPUTicks();
    previousNetworkBytes = readNetworkBytes();
    previousNetworkTimestamp = platform_.runLoop().now();
    updateMetrics();
    updateTimer = platform_.runLoop().every(updateInterval, [this] { updateMetrics(); });
}

void SystemMonitorManager::updateMetrics() {
    SystemMetrics sample;
    sample.cpuUsage = calculateCPUUsage();
    const auto memory = calculateMemoryUsage();
    sample.memoryUsage = memory.percent;
    sample.memoryUsed = memory.used;
    sample.memoryTotal = memory.total;
    const auto speed = calculateNetworkSpeed();
    sample.networkUpload = speed.upload;
    sample.networkDownload = speed.download;
    sample.cpuTemperature = SMCTemperature::readCPUTemperature(platform_.smc());
    sample.lastUpdated = platform_.runLoop().now();
    hasFigures = true;
    metrics = sample;
}

std::optional<ProcessorTicks> SystemMonitorManager::readCPUTicks() {
    const auto processors = platform_.hostStatistics().processorTicks();
    if (!processors || processors->empty())
        return std::nullopt;
    ProcessorTicks sum;
    for (const auto& processor : *processors) {
        sum.user += processor.user;
        sum.system += processor.system;
        sum.idle += processor.idle;
        sum.nice += processor.nice;
    }
    return sum;
}

double SystemMonitorManager::calculateCPUUsage() {
    const auto ticks = readCPUTicks();
    // The sums fall only when a processor was taken away: the baseline is then of no use.
    if (!ticks || !previousCPUInfo || hasFallen(*ticks, *previousCPUInfo)) {
        previousCPUInfo = ticks;
        return 0;
    }
    const auto user = ticks->user - previousCPUInfo->user;
    const auto system = ticks->system - previousCPUInfo->system;
    const auto idle = ticks->idle - previousCPUInfo->idle;
    const auto nice = ticks->nice - previousCPUInfo->nice;
    const auto total = user + system + idle + nice;
    if (total == 0)
        return 0;
    previousCPUInfo = ticks;
    return static_cast<double>(user + system) / static_cast<double>(total) * 100;
}

SystemMonitorManager::MemoryUsage SystemMonitorManager::calculateMemoryUsage() {
    auto& statistics = platform_.hostStatistics();
    const auto total = statistics.physicalMemory();
    const auto pages = statistics.virtualMemory();
    if (!pages || total == 0)
        return {0, 0, total};
    const auto used =
        (pages->activePages + pages->wiredPages + pages->compressorPages) * statistics.pageSize();
    return {static_cast<double>(used) / static_cast<double>(total) * 100, used, total};
}

SystemMonitorManager::NetworkBytes SystemMonitorManager::readNetworkBytes() {
    NetworkBytes sum;
    const auto interfaces = platform_.hostStatistics().interfaces();
    if (!interfaces)
        return sum;
    for (const auto& entry : *interfaces) {
        if (!entry.counters || !isCounted(entry.name))
            continue;
        sum.upload += entry.counters->outputBytes;
        sum.download += entry.counters->inputBytes;
    }
    return sum;
}

SystemMonitorManager::NetworkBytes SystemMonitorManager::calculateNetworkSpeed() {
    const auto bytes = readNetworkBytes();
    const auto now = platform_.runLoop().now();
    NetworkBytes speed;
    if (previousNetworkBytes && previousNetworkTimestamp) {
        const Seconds interval = now - *previousNetworkTimestamp;
        if (interval > 0) {
            speed.upload = perSecond(growth(bytes.upload, previousNetworkBytes->upload), interval);
            speed.download =
                perSecond(growth(bytes.download, previousNetworkBytes->download), interval);
        }
    }
    previousNetworkBytes = bytes;
    previousNetworkTimestamp = now;
    return speed;
}

} // namespace orvelle
