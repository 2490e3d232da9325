#pragma once

#include <string_view>

namespace orvelle {

/// The desktop's short sounds.
class Sound {
public:
    virtual ~Sound() = default;
    /// Plays the sound that the desktop has for this name, such as "Glass"; nothing when it has
    /// none, or cannot play. Does not wait for it.
    virtual void play(std::string_view name) = 0;
};

} // namespace orvelle
