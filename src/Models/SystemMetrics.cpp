#include "Models/SystemMetrics.h"

#include "Foundation/Format.h"

namespace orvelle {

std::string compactBytes(std::uint64_t bytes) {
    constexpr double kibi = 1024;
    constexpr double mebi = kibi * 1024;
    constexpr double gibi = mebi * 1024;
    const auto value = static_cast<double>(bytes);
    if (value < kibi)
        return "0K";
    if (value < mebi)
        return format("%.0fK", value / kibi);
    if (value < gibi)
        return format("%.1fM", value / mebi);
    return format("%.1fG", value / gibi);
}

} // namespace orvelle
