#include "Platform/Ical/IcalFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace orvelle;

/// Whatever the file holds, reading it ends in time, and gives events that end after they begin and
/// share time with the span.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr Date now{790171200}; // 2026-01-15 12:00:00 UTC
    constexpr Seconds day = 86400;
    using Clock = std::chrono::steady_clock;
    const auto began = Clock::now();
    IcalFile file({now, now + day, "America/New_York", began + std::chrono::seconds(2)});
    file.feed({reinterpret_cast<const char*>(bytes), size});
    for (const auto& event : file.finish())
        if (!event.startDate || !event.endDate || *event.endDate < *event.startDate ||
            *event.startDate >= now + day || *event.endDate < now)
            std::abort();
    if (Clock::now() - began > std::chrono::seconds(10))
        std::abort();
    return 0;
}
