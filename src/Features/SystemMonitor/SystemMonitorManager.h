#pragma once

#include "Models/SystemMetrics.h"
#include "Platform/HostStatistics.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <optional>

namespace orvelle {

/// Samples CPU, memory, network and temperature every 2 s.
class SystemMonitorManager : public FeatureModule {
public:
    static constexpr Seconds updateInterval = 2.0;

    struct MemoryUsage {
        double percent = 0;
        std::uint64_t used = 0;
        std::uint64_t total = 0;
    };
    /// Bytes, or bytes per second.
    struct NetworkBytes {
        std::uint64_t upload = 0;
        std::uint64_t download = 0;
        bool operator==(const NetworkBytes&) const = default;
    };

    explicit SystemMonitorManager(Platform& platform = Platform::shared());

    Published<SystemMetrics> metrics;
    Published<bool> hasFigures{false}; ///< whether they were measured
    Timer updateTimer;
    std::optional<ProcessorTicks> previousCPUInfo; ///< summed over all processors
    std::optional<NetworkBytes> previousNetworkBytes;
    std::optional<Date> previousNetworkTimestamp;

    void start() override;
    void updateMetrics();

private:
    double calculateCPUUsage();
    MemoryUsage calculateMemoryUsage();
    NetworkBytes calculateNetworkSpeed();
    std::optional<ProcessorTicks> readCPUTicks();
    NetworkBytes readNetworkBytes();

    Platform& platform_;
};

} // namespace orvelle
