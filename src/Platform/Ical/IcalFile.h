#pragma once

#include "Platform/EventStore.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// Finds the occurrences that one calendar file has in a span of time: repeated events by their
/// rules, without their exceptions and with the occurrences that were changed one by one; events
/// that are called off are left out. What cannot be understood is passed over.
///
/// Memory and time are bounded for every file: see the limits here, in ComponentReader and in
/// Recurrence. Any thread, one at a time in the process.
class IcalFile {
public:
    static constexpr std::size_t maximumOccurrences = 2000;
    /// Changed occurrences, and events whose time zone may come later in the file.
    static constexpr std::size_t maximumChanges = 50000;
    static constexpr std::size_t maximumWaiting = 4 << 20; // bytes

    struct Span {
        Date from;
        Date to;
        std::string localZone; ///< of times without a zone, and of whole days
        std::chrono::steady_clock::time_point deadline; ///< from then on nothing more is taken in
    };

    explicit IcalFile(Span span);
    ~IcalFile();

    /// The next bytes of the file; false when there is no use in reading on.
    bool feed(std::string_view bytes);
    /// After the last ones. The events have no calendar.
    std::vector<StoredEvent> finish();

private:
    class Reading;
    std::unique_ptr<Reading> reading_;
};

} // namespace orvelle
