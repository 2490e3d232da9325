#pragma once

#include "Foundation/Color.h"
#include "Foundation/Subscription.h"

#include <functional>

namespace orvelle {

/// The desktop's look, as far as the program follows it.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// The desktop's accent; a calm blue where the desktop names none. Cheap, and not cached by
    /// callers.
    virtual Color controlAccentColor() const = 0;
    [[nodiscard]] virtual Subscription
    observeSystemColorsChanges(std::function<void()> changed) = 0;
};

} // namespace orvelle
