#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Linux/X11Connection.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <optional>

namespace orvelle {

/// Looks for what shows tray items: a host for status notifier items on the session bus, or an
/// XEmbed tray on the display. Never waits for either. Main thread only.
class TrayHosts : public QObject {
    Q_OBJECT

public:
    /// `found` hears whether there is one: first when that is known, then with true whenever
    /// another one comes up.
    TrayHosts(RunLoop& runLoop, BusProvider sessionBus, std::function<void(bool isThere)> found);

private Q_SLOTS:
    void lookAgain();

private:
    void attach(QDBusConnection connection);
    void look(std::function<void(bool hasNotifierHost)> answered);
    bool hasXEmbedTray() const;
    void handle(const xcb_generic_event_t& event);

    const std::function<void(bool)> found_;
    const xcb_atom_t xembedSelection_;
    std::optional<QDBusConnection> connection_;
    QDBusServiceWatcher watcher_;
    Subscription connecting_;
    Subscription events_;
};

} // namespace orvelle
