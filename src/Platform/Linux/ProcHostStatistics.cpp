#include "Platform/Linux/ProcHostStatistics.h"

#include <fcntl.h>
#include <ifaddrs.h>
#include <linux/if_link.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <memory>

namespace orvelle {

namespace {

constexpr std::size_t firstBufferSize = 16 * 1024; // about 200 processors
constexpr std::size_t largestBufferSize = 1024 * 1024;
constexpr unsigned mostProcessors = 8192; // the kernel's own limit

template <class Number>
bool takeNumber(std::string_view& text, Number& number) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc())
        return false;
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return true;
}

/// The columns of a processor's line: user, nice, system, idle, iowait, irq, softirq, …
std::optional<ProcessorTicks> parseTicks(std::string_view columns) {
    std::array<std::uint64_t, 7> count{};
    for (auto& value : count)
        if (!takeNumber(columns, value))
            return std::nullopt;
    return ProcessorTicks{.user = count[0],
                          .system = count[2] + count[5] + count[6],
                          .idle = count[3] + count[4],
                          .nice = count[1]};
}

void grow(std::uint64_t& grown, std::uint64_t& last, std::uint64_t fresh) {
    if (fresh > last)
        grown += fresh - last;
    last = fresh;
}

/// The bytes of a line such as "MemTotal:       16303104 kB".
std::optional<std::uint64_t> memoryField(std::string_view text, std::string_view label) {
    const auto at = text.find(label);
    if (at == std::string_view::npos)
        return std::nullopt;
    text.remove_prefix(at + label.size());
    std::uint64_t kilobytes = 0;
    if (!takeNumber(text, kilobytes))
        return std::nullopt;
    return kilobytes * 1024;
}

} // namespace

ProcHostStatistics::File::~File() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

std::optional<std::string_view> ProcHostStatistics::File::read(std::string& buffer) {
    if (descriptor_ < 0)
        descriptor_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0)
        return std::nullopt;
    std::size_t length = 0;
    while (length < buffer.size()) {
        const auto count = ::pread(descriptor_, buffer.data() + length, buffer.size() - length,
                                   static_cast<off_t>(length));
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count);
    }
    return std::string_view(buffer.data(), length);
}

ProcHostStatistics::ProcHostStatistics(std::string procRoot, std::string sysRoot)
    : statistics_(procRoot + "/stat"), memory_(procRoot + "/meminfo"),
      interfaceFolder_(sysRoot + "/class/net/"), buffer_(firstBufferSize, '\0'),
      pageSize_(static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE))) {
    if (const auto text = memory_.read(buffer_))
        physicalMemory_ = memoryField(*text, "MemTotal:").value_or(0);
}

ProcHostStatistics::~ProcHostStatistics() = default;

std::optional<std::vector<ProcessorTicks>> ProcHostStatistics::processorTicks() {
    auto text = statistics_.read(buffer_);
    while (text && text->find("\nintr") == std::string_view::npos &&
           text->size() == buffer_.size() && buffer_.size() < largestBufferSize) {
        buffer_.resize(buffer_.size() * 2);
        text = statistics_.read(buffer_);
    }
    if (!text || !parseProcessors(*text))
        return std::nullopt;
    std::vector<ProcessorTicks> ticks;
    ticks.reserve(processors_.size());
    for (const auto& processor : processors_)
        ticks.push_back(processor.grown);
    return ticks;
}

/// Lines of the sum and of other counters are passed over; false when no processor was found.
bool ProcHostStatistics::parseProcessors(std::string_view text) {
    bool found = false;
    while (text.starts_with("cpu")) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(3, end - 3);
        text.remove_prefix(std::min(end + 1, text.size()));
        unsigned index = 0;
        if (line.starts_with(' ') || !takeNumber(line, index) || index >= mostProcessors)
            continue;
        const auto fresh = parseTicks(line);
        if (!fresh)
            continue;
        found = true;
        if (index >= processors_.size())
            processors_.resize(index + 1);
        auto& [last, grown] = processors_[index];
        grow(grown.user, last.user, fresh->user);
        grow(grown.system, last.system, fresh->system);
        grow(grown.idle, last.idle, fresh->idle);
        grow(grown.nice, last.nice, fresh->nice);
    }
    return found;
}

std::optional<VirtualMemoryStatistics> ProcHostStatistics::virtualMemory() {
    const auto text = memory_.read(buffer_);
    if (!text)
        return std::nullopt;
    const auto total = memoryField(*text, "MemTotal:");
    const auto available = memoryField(*text, "MemAvailable:");
    if (!total || !available || *available > *total)
        return std::nullopt;
    return VirtualMemoryStatistics{.activePages = (*total - *available) / pageSize_};
}

std::optional<std::vector<InterfaceEntry>> ProcHostStatistics::interfaces() {
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return std::nullopt;
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> owner(list, &::freeifaddrs);
    std::vector<InterfaceEntry> entries;
    for (const auto* entry = list; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_PACKET || !entry->ifa_data)
            continue;
        const auto* counters = static_cast<const rtnl_link_stats*>(entry->ifa_data);
        entries.push_back({presentedName(entry->ifa_name, hasDevice(entry->ifa_name)),
                           InterfaceEntry::Counters{.outputBytes = counters->tx_bytes,
                                                    .inputBytes = counters->rx_bytes}});
    }
    return entries;
}

bool ProcHostStatistics::hasDevice(const char* interface) const {
    return ::access((interfaceFolder_ + interface + "/device").c_str(), F_OK) == 0;
}

std::string ProcHostStatistics::presentedName(std::string_view name, bool hasDevice) {
    constexpr std::string_view counted = "en";
    if (!hasDevice)
        return std::string("virtual-").append(name);
    return name.starts_with(counted) ? std::string(name)
                                     : std::string(counted).append("-").append(name);
}

} // namespace orvelle
