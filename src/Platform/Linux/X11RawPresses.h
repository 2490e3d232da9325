#pragma once

#include "Foundation/Published.h"
#include "Platform/Linux/X11Connection.h"

namespace orvelle {

/// Every press of a pointer button on the display, whichever window it goes to.
class X11RawPresses {
public:
    struct Press {
        std::uint32_t button; ///< as in X: 1 is the left one; wheel steps are left out
        bool inOwnWindow;     ///< the pointer was over a window of this process
    };

    X11RawPresses();

    [[nodiscard]] Subscription observe(std::function<void(const Press&)> observer) {
        return presses_.observe(std::move(observer));
    }

private:
    void handle(const xcb_generic_event_t& event);

    std::uint8_t inputOpcode_ = 0;
    Event<Press> presses_;
    Subscription events_;
};

} // namespace orvelle
