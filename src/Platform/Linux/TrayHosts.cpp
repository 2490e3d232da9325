#include "Platform/Linux/TrayHosts.h"

#include <QDBusVariant>

#include <string>
#include <utility>

namespace orvelle {

namespace {

const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher"); // and its interface
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayHosts::TrayHosts(RunLoop& runLoop, BusProvider sessionBus, std::function<void(bool)> found)
    : found_(std::move(found)),
      xembedSelection_(X11::atom("_NET_SYSTEM_TRAY_S" + std::to_string(X11::screenNumber()))) {
    connecting_ = withBus(runLoop, std::move(sessionBus),
                          [this](QDBusConnection connection) { attach(connection); });
    // A tray that comes up says so to the root's structure watchers.
    X11::selectEvents(X11::root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
}

void TrayHosts::attach(QDBusConnection connection) {
    connection_ = connection;
    watcher_.setConnection(connection);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    watcher_.addWatchedService(watcherName);
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &TrayHosts::lookAgain);
    // Without a service name: with one, the library would wait for the name's owner.
    connection_->connect({}, watcherPath, watcherName,
                         QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(lookAgain()));
    look([this](bool hasNotifierHost) { found_(hasNotifierHost || hasXEmbedTray()); });
}

void TrayHosts::lookAgain() {
    look([this](bool hasNotifierHost) {
        if (hasNotifierHost)
            found_(true);
    });
}

// The toolkit asks the same and waits for the answer, so it must not be the first to ask.
void TrayHosts::look(std::function<void(bool)> answered) {
    auto call = QDBusMessage::createMethodCall(watcherName, watcherPath,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    callBus(*connection_, call, this, [answered = std::move(answered)](const QDBusMessage& reply) {
        answered(reply.type() == QDBusMessage::ReplyMessage &&
                 reply.arguments().value(0).value<QDBusVariant>().variant().toBool());
    });
}

bool TrayHosts::hasXEmbedTray() const {
    const auto cookie = xcb_get_selection_owner(X11::connection(), xembedSelection_);
    const X11::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(X11::connection(), cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void TrayHosts::handle(const xcb_generic_event_t& event) {
    if (X11::typeOf(event) != XCB_CLIENT_MESSAGE)
        return;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    if (message.type == X11::atom("MANAGER") && message.data.data32[1] == xembedSelection_)
        found_(true);
}

} // namespace orvelle
