#pragma once

#include <optional>
#include <vector>

namespace orvelle {

/// How bright the screens shine. Any thread.
class DisplayBrightness {
public:
    virtual ~DisplayBrightness() = default;

    /// One entry a display, 0 to 1, the one that matters most last; a display that does not answer
    /// stands as none in the list. None when the displays cannot be listed.
    virtual std::optional<std::vector<std::optional<float>>> levels() = 0;
};

} // namespace orvelle
