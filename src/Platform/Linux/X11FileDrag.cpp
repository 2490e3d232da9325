#include "Platform/Linux/X11FileDrag.h"

#include "Platform/Linux/UriList.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

constexpr const char* dragSelectionName = "XdndSelection";
/// A source that speaks a later version of the protocol than its target says something else.
constexpr std::uint32_t latestVersion = 5;

/// Whether the drag that the message announces offers the type of file lists. Three types fit into
/// the message; where there are more, a property of the source holds them all.
bool offersFiles(const xcb_client_message_event_t& enter) {
    const auto& data = enter.data.data32;
    if (data[1] >> 24 > latestVersion)
        return false;
    constexpr std::uint32_t hasList = 1;
    const auto types = data[1] & hasList ? X11::cardinals(data[0], X11::atom("XdndTypeList"))
                                         : std::vector<std::uint32_t>(data + 2, data + 5);
    return std::ranges::find(types, X11::atom(draggedFileType)) != types.end();
}

} // namespace

X11FileDrag::X11FileDrag(xcb_window_t window) : window_(window) {
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
}

void X11FileDrag::setDestination(DraggingDestination* destination) {
    reset();
    destination_ = destination;
}

void X11FileDrag::handle(const xcb_generic_event_t& event) {
    if (!destination_)
        return;
    if (X11::typeOf(event) == XCB_CLIENT_MESSAGE) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.window == window_ && message.format == 32)
            handleMessage(message);
    } else if (X11::typeOf(event) == XCB_DESTROY_NOTIFY && source_ != XCB_WINDOW_NONE) {
        // A source that ends in mid-drag says nothing more.
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == source_ &&
            !isDropped_)
            left();
    }
}

void X11FileDrag::handleMessage(const xcb_client_message_event_t& message) {
    const auto& data = message.data.data32;
    if (message.type == X11::atom("XdndEnter"))
        entered(message);
    else if (data[0] != source_ || source_ == XCB_WINDOW_NONE)
        return; // not of the drag that entered
    else if (message.type == X11::atom("XdndPosition"))
        moved(data[3]);
    else if (message.type == X11::atom("XdndLeave"))
        left();
    else if (message.type == X11::atom("XdndDrop"))
        dropped(data[2]);
}

void X11FileDrag::entered(const xcb_client_message_event_t& message) {
    left(); // in case that the drag before said nothing at its end
    source_ = message.data.data32[0];
    setMayBeTaken(offersFiles(message));
    if (mayBeTaken)
        X11::selectEvents(source_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11FileDrag::moved(xcb_timestamp_t time) {
    if (isAnnounced_)
        destination_->draggingUpdated();
    else if (mayBeTaken && !reader_.isReading())
        read(time);
}

void X11FileDrag::left() {
    const bool wasAnnounced = isAnnounced_;
    reset();
    if (wasAnnounced)
        destination_->draggingExited();
}

void X11FileDrag::dropped(xcb_timestamp_t time) {
    if (!mayBeTaken)
        return reset();
    isDropped_ = true;
    if (files_)
        perform();
    else
        read(time); // sources tell drops apart by their time
}

void X11FileDrag::read(xcb_timestamp_t time) {
    reader_.read(X11::atom(dragSelectionName), X11::atom(draggedFileType), time,
                 [this](const std::optional<std::string>& uriList) { adopt(uriList); });
}

void X11FileDrag::adopt(const std::optional<std::string>& uriList) {
    if (!uriList && !isDropped_)
        return; // asked again with the next move
    if (uriList)
        files_ = filesOf(*uriList);
    setMayBeTaken(files_ && !files_->empty());
    if (mayBeTaken && !isAnnounced_) {
        isAnnounced_ = true;
        destination_->draggingEntered();
    }
    if (isDropped_)
        perform();
}

void X11FileDrag::perform() {
    const auto files = std::exchange(files_, std::nullopt);
    const bool isWanted = isAnnounced_;
    reset();
    if (isWanted && destination_->prepareForDragOperation())
        destination_->performDragOperation(files);
}

void X11FileDrag::reset() {
    reader_.cancel();
    source_ = XCB_WINDOW_NONE;
    isDropped_ = isAnnounced_ = false;
    files_.reset();
    setMayBeTaken(false);
}

void X11FileDrag::setMayBeTaken(bool value) {
    if (value != mayBeTaken.get())
        mayBeTaken = value;
}

} // namespace orvelle
