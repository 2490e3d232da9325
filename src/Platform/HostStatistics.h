#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// Ticks since the machine started.
struct ProcessorTicks {
    std::uint64_t user = 0;
    std::uint64_t system = 0;
    std::uint64_t idle = 0;
    std::uint64_t nice = 0;
    bool operator==(const ProcessorTicks&) const = default;
};

struct VirtualMemoryStatistics {
    std::uint64_t activePages = 0;
    std::uint64_t wiredPages = 0;
    std::uint64_t compressorPages = 0;
    bool operator==(const VirtualMemoryStatistics&) const = default;
};

/// One address of a network interface. Names follow one scheme on every platform: wired and
/// wireless "en…", loopback "lo…", tunnels "utun…"; others are not counted. A platform leaves
/// loopback and tunnels uncounted whose traffic passes a device as well.
struct InterfaceEntry {
    struct Counters {
        std::uint32_t outputBytes = 0;
        std::uint32_t inputBytes = 0;
        bool operator==(const Counters&) const = default;
    };
    std::string name;
    /// None for an entry that carries an address only.
    std::optional<Counters> counters;
    bool operator==(const InterfaceEntry&) const = default;
};

/// Readings of the running system, made on the spot in well under a millisecond.
class HostStatistics {
public:
    virtual ~HostStatistics() = default;

    /// One entry a processor; none when the system does not answer.
    virtual std::optional<std::vector<ProcessorTicks>> processorTicks() = 0;
    virtual std::optional<VirtualMemoryStatistics> virtualMemory() = 0;
    /// Bytes.
    virtual std::uint64_t pageSize() const = 0;
    /// Bytes; 0 when unknown.
    virtual std::uint64_t physicalMemory() const = 0;
    virtual std::optional<std::vector<InterfaceEntry>> interfaces() = 0;
};

} // namespace orvelle
