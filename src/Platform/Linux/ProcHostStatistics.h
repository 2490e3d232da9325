#pragma once

#include "Platform/HostStatistics.h"

#include <string>
#include <string_view>

namespace orvelle {

/// The kernel's counters. The files stay open and the buffers stay allocated between samples.
///
/// Processor time: `system` is system, irq and softirq, since time in interrupt handlers is work
/// that the kernel keeps apart only on this platform; `idle` is idle and iowait, since a processor
/// that waits for a disk is free. Stolen time counts nowhere: the machine did not have it. Guests'
/// time is part of user and nice already. No counter of a processor ever falls, also when the
/// kernel corrects one downwards or takes a processor offline.
///
/// Memory: what is in use is MemTotal less MemAvailable, the kernel's own estimate of what a
/// new program could get. Page kinds overlap here, so it all stands in `activePages`.
///
/// Interfaces: link entries only, all with counters. See `presentedName`.
class ProcHostStatistics : public HostStatistics {
public:
    explicit ProcHostStatistics(std::string procRoot = "/proc", std::string sysRoot = "/sys");
    ~ProcHostStatistics() override;
    ProcHostStatistics(const ProcHostStatistics&) = delete;
    ProcHostStatistics& operator=(const ProcHostStatistics&) = delete;

    std::optional<std::vector<ProcessorTicks>> processorTicks() override;
    std::optional<VirtualMemoryStatistics> virtualMemory() override;
    std::uint64_t pageSize() const override { return pageSize_; }
    std::uint64_t physicalMemory() const override { return physicalMemory_; }
    std::optional<std::vector<InterfaceEntry>> interfaces() override;

    /// A kernel name in the scheme that interfaces are counted by: with a device behind it "en…",
    /// whatever it is called; without one "virtual-…", which is not counted. What passes loopback,
    /// a tunnel, a bridge, a VLAN or a container's end stays on the machine, or passes an interface
    /// with a device as well.
    static std::string presentedName(std::string_view name, bool hasDevice);

private:
    /// A file whose content is made anew by each read from its start.
    class File {
    public:
        explicit File(std::string path) : path_(std::move(path)) {}
        ~File();
        File(const File&) = delete;
        File& operator=(const File&) = delete;
        /// At most `buffer.size()` bytes, in `buffer`; none when it cannot be read.
        std::optional<std::string_view> read(std::string& buffer);

    private:
        std::string path_;
        int descriptor_ = -1;
    };
    struct Processor {
        ProcessorTicks last;  ///< as the kernel gave them
        ProcessorTicks grown; ///< as they are handed out
    };

    bool parseProcessors(std::string_view text);
    bool hasDevice(const char* interface) const;

    File statistics_;
    File memory_;
    std::string interfaceFolder_;
    std::string buffer_;
    std::vector<Processor> processors_;
    std::uint64_t pageSize_;
    std::uint64_t physicalMemory_ = 0;
};

} // namespace orvelle
