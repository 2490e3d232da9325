#pragma once

#include "Foundation/Geometry.h"
#include "Foundation/Subscription.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

struct Screen {
    std::string localizedName;
    Rect frame;
    /// The frame without what bars and panels have reserved.
    Rect visibleFrame;
    /// `top` above 0 says that the screen has a notch, and how high it is.
    EdgeInsets safeAreaInsets;
    /// The usable areas beside a notch.
    std::optional<Rect> auxiliaryTopLeftArea;
    std::optional<Rect> auxiliaryTopRightArea;

    bool operator==(const Screen&) const = default;
};

/// The connected screens, in points, origin at the bottom left of the main screen.
class Screens {
public:
    virtual ~Screens() = default;

    /// Empty without any screen.
    virtual std::vector<Screen> screens() const = 0;
    /// The user's primary screen; none when the system names none.
    virtual std::optional<Screen> main() const = 0;
    /// A screen came, went, or changed its frame, work area or insets.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> changed) = 0;
};

} // namespace orvelle
