#include "Platform/Linux/X11Pasteboard.h"

#include "Platform/DraggingDestination.h"
#include "Platform/Linux/UriList.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Qt/FileMimeData.h"

#include <QClipboard>
#include <QGuiApplication>
#include <xcb/xfixes.h>

namespace orvelle {

namespace {

constexpr char clipboardName[] = "CLIPBOARD";

xcb_atom_t internAtom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const X11::Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// A window that is never shown, for the answers.
xcb_window_t makeWindow(xcb_connection_t* connection) {
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const auto window = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    return window;
}

} // namespace

X11Pasteboard::X11Pasteboard(std::chrono::milliseconds patience) : patience_(patience) {}

X11Pasteboard::~X11Pasteboard() = default;

void X11Pasteboard::connect() {
    if (std::exchange(isTried_, true))
        return;
    connection_.reset(xcb_connect(nullptr, nullptr));
    auto* connection = connection_.get();
    if (xcb_connection_has_error(connection))
        return;
    const auto window = makeWindow(connection);
    if (!followOwners(window))
        return;
    reader_ = std::make_unique<X11TextReader>(connection, window,
                                              internAtom(connection, clipboardName), patience_);
    selectionReader_ = std::make_unique<X11TextReader>(connection, makeWindow(connection),
                                                       XCB_ATOM_PRIMARY, patience_);
    arrivals_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection),
                                                  QSocketNotifier::Read);
    QObject::connect(arrivals_.get(), &QSocketNotifier::activated, arrivals_.get(),
                     [this] { handleEvents(); });
    handleEvents();
}

bool X11Pasteboard::followOwners(xcb_window_t window) {
    auto* connection = connection_.get();
    const auto* fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!fixes || !fixes->present)
        return false;
    const auto version =
        xcb_xfixes_query_version(connection, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    const X11::Reply<xcb_xfixes_query_version_reply_t> known(
        xcb_xfixes_query_version_reply(connection, version, nullptr));
    if (!known)
        return false;
    ownerChange_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(connection, window, internAtom(connection, clipboardName),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_flush(connection);
    return true;
}

void X11Pasteboard::handleEvents() {
    while (X11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if (X11::typeOf(*event) == ownerChange_) {
            const auto& change =
                reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(*event);
            ownedSince_ = change.selection_timestamp;
            ++changeCount_;
        } else {
            reader_->handle(*event);
            selectionReader_->handle(*event);
        }
    }
    if (xcb_connection_has_error(connection_.get()))
        arrivals_->setEnabled(false); // it would fire for ever
}

std::int64_t X11Pasteboard::changeCount() {
    connect();
    return changeCount_;
}

Subscription X11Pasteboard::readString(Reading done) {
    connect();
    if (!reader_) {
        done(std::nullopt);
        return {};
    }
    return reader_->read(ownedSince_, std::move(done));
}

Subscription X11Pasteboard::readSelection(Reading done) {
    connect();
    if (!selectionReader_) {
        done(std::nullopt);
        return {};
    }
    // Its owners are not followed: they change with every movement that selects.
    return selectionReader_->read(XCB_CURRENT_TIME, std::move(done));
}

Subscription X11Pasteboard::readFiles(FileReading done) {
    if (!fileReader_)
        fileReader_ = std::make_unique<X11SelectionReader>();
    const auto isWanted = std::make_shared<bool>(true);
    fileReader_->read(X11::atom(clipboardName), X11::atom(draggedFileType), XCB_CURRENT_TIME,
                      [isWanted, done = std::move(done)](const auto& uriList) {
                          if (*isWanted)
                              done(uriList ? filesOf(*uriList) : std::vector<std::string>());
                      });
    return Subscription([isWanted] { *isWanted = false; });
}

void X11Pasteboard::setString(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    countOwnChange();
}

void X11Pasteboard::writeFiles(const std::vector<std::string>& urls) {
    QGuiApplication::clipboard()->setMimeData(fileMimeData(urls).release());
    countOwnChange();
}

void X11Pasteboard::countOwnChange() {
    if (!reader_)
        return;
    // Qt has made sure of its ownership, so that the news of it comes before this answer.
    const auto cookie = xcb_get_input_focus(connection_.get());
    const X11::Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(connection_.get(), cookie, nullptr));
    handleEvents();
}

} // namespace orvelle
