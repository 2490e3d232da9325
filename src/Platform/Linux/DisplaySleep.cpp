#include "Platform/Linux/DisplaySleep.h"

#include <QDBusVariant>
#include <QGuiApplication>
#include <xcb/dpms.h>

namespace orvelle {

namespace {

/// False when the program is not on an X server with power management.
bool sleepThroughX() {
    const auto* application =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    auto* connection = application ? application->connection() : nullptr;
    if (!connection) // Qt's offscreen platform has the interface and no server behind it
        return false;
    const auto* extension = xcb_get_extension_data(connection, &xcb_dpms_id);
    if (!extension || !extension->present)
        return false;
    xcb_dpms_enable(connection); // a disabled one refuses every level
    xcb_dpms_force_level(connection, XCB_DPMS_DPMS_MODE_OFF);
    xcb_flush(connection);
    return true;
}

} // namespace

DisplaySleep::DisplaySleep(RunLoop& runLoop, LogSink& log, BusProvider sessionBus)
    : runLoop_(runLoop), log_(log, "DisplaySleep"), sessionBus_(std::move(sessionBus)) {}

void DisplaySleep::sleep() {
    delay_ = runLoop_.after(delay, [this] {
        if (!sleepThroughX())
            connecting_ = withBus(runLoop_, sessionBus_,
                                  [this](const QDBusConnection& bus) { askDesktop(bus); });
    });
}

void DisplaySleep::askDesktop(const QDBusConnection& bus) {
    constexpr int off = 3;
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.gnome.Mutter.DisplayConfig"),
                                               QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Set"));
    call << QStringLiteral("org.gnome.Mutter.DisplayConfig") << QStringLiteral("PowerSaveMode")
         << QVariant::fromValue(QDBusVariant(off));
    callBus(bus, call, this, [this](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage)
            log_.error("Nothing here puts the display to sleep: " +
                       reply.errorMessage().toStdString());
    });
}

} // namespace orvelle
