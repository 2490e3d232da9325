#pragma once

#include "Foundation/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orvelle {

/// One sample of the machine's load.
struct SystemMetrics {
    double cpuUsage = 0;    ///< percent
    double memoryUsage = 0; ///< percent of physical memory
    std::uint64_t memoryTotal = 0;
    std::uint64_t memoryUsed = 0;
    std::uint64_t networkUpload = 0; ///< bytes per second
    std::uint64_t networkDownload = 0;
    std::optional<double> cpuTemperature; ///< degrees Celsius
    double diskUsage = 0;                 ///< reserved; no sample writes it
    Date lastUpdated;
    bool operator==(const SystemMetrics&) const = default;
};

/// A short rate for narrow places, such as "12K" or "1.5M".
std::string compactBytes(std::uint64_t bytes);

} // namespace orvelle
