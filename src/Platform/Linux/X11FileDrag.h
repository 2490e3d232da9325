#pragma once

#include "Foundation/Published.h"
#include "Platform/DraggingDestination.h"
#include "Platform/Linux/X11SelectionReader.h"

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// Follows the drags of other programs over one window, by the messages of the XDND protocol
/// (version 5), and tells of those that hold files of this machine. What is dragged is read while
/// the drag goes on, so that nothing waits for its source; Qt answers the messages. Main thread.
class X11FileDrag {
public:
    explicit X11FileDrag(xcb_window_t window);

    void setDestination(DraggingDestination* destination);

    /// Whether a drop of what is over the window now may bring files.
    Published<bool> mayBeTaken;

private:
    void handle(const xcb_generic_event_t& event);
    void handleMessage(const xcb_client_message_event_t& message);
    void entered(const xcb_client_message_event_t& message);
    void moved(xcb_timestamp_t time);
    void left();
    void dropped(xcb_timestamp_t time);
    void read(xcb_timestamp_t time);
    void adopt(const std::optional<std::string>& uriList);
    void perform();
    void reset();
    void setMayBeTaken(bool value);

    const xcb_window_t window_;
    DraggingDestination* destination_ = nullptr;
    X11SelectionReader reader_;
    xcb_window_t source_ = XCB_WINDOW_NONE;
    bool isDropped_ = false;   ///< the answer is all that is missing
    bool isAnnounced_ = false; ///< the destination was told of the drag
    std::optional<std::vector<std::string>> files_;
    Subscription events_;
};

} // namespace orvelle
