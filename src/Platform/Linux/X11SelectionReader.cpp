#include "Platform/Linux/X11SelectionReader.h"

#include <chrono>
#include <utility>

namespace orvelle {

namespace {

constexpr std::chrono::seconds selectionPatience{5};
constexpr const char* propertyName = "ORVELLE_SELECTION";

} // namespace

X11SelectionReader::X11SelectionReader() {
    silence_.setSingleShot(true);
    silence_.setInterval(selectionPatience);
    QObject::connect(&silence_, &QTimer::timeout, &silence_, [this] { finish(std::nullopt); });
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
}

X11SelectionReader::~X11SelectionReader() {
    cancel();
}

void X11SelectionReader::read(xcb_atom_t selection, xcb_atom_t target, xcb_timestamp_t time,
                              Done done) {
    cancel();
    auto* connection = X11::connection();
    window_ = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, X11::root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_convert_selection(connection, window_, selection, target, X11::atom(propertyName), time);
    xcb_flush(connection);
    done_ = std::move(done);
    silence_.start();
}

void X11SelectionReader::cancel() {
    silence_.stop();
    done_ = nullptr;
    bytes_.clear();
    isInPieces_ = false;
    if (window_ == XCB_WINDOW_NONE)
        return;
    xcb_destroy_window(X11::connection(), std::exchange(window_, XCB_WINDOW_NONE));
    xcb_flush(X11::connection());
}

void X11SelectionReader::handle(const xcb_generic_event_t& event) {
    if (window_ == XCB_WINDOW_NONE)
        return;
    if (X11::typeOf(event) == XCB_SELECTION_NOTIFY) {
        const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        if (answer.requestor == window_)
            takeAnswer(answer.property);
    } else if (X11::typeOf(event) == XCB_PROPERTY_NOTIFY && isInPieces_) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == window_ && change.atom == X11::atom(propertyName) &&
            change.state == XCB_PROPERTY_NEW_VALUE)
            takePiece();
    }
}

void X11SelectionReader::takeAnswer(xcb_atom_t property) {
    if (property != X11::atom(propertyName))
        return finish(std::nullopt);
    xcb_atom_t type = XCB_ATOM_NONE;
    auto bytes = take(property, type);
    isInPieces_ = bytes && type == X11::atom("INCR");
    if (isInPieces_)
        silence_.start();
    else
        finish(std::move(bytes));
}

void X11SelectionReader::takePiece() {
    xcb_atom_t type = XCB_ATOM_NONE;
    const auto piece = take(X11::atom(propertyName), type);
    if (!piece || bytes_.size() + piece->size() > maximumSize)
        return finish(std::nullopt);
    if (piece->empty())
        return finish(std::move(bytes_));
    bytes_ += *piece;
    silence_.start();
}

std::optional<std::string> X11SelectionReader::take(xcb_atom_t property, xcb_atom_t& type) {
    const auto cookie =
        xcb_get_property(X11::connection(), 1, window_, property, XCB_ATOM_ANY, 0, maximumSize / 4);
    const X11::Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(X11::connection(), cookie, nullptr));
    if (!reply || reply->bytes_after)
        return std::nullopt;
    type = reply->type;
    return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

void X11SelectionReader::finish(std::optional<std::string> bytes) {
    const auto done = std::exchange(done_, nullptr);
    cancel();
    if (done)
        done(std::move(bytes));
}

} // namespace orvelle
