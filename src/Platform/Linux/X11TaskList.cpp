#include "Platform/Linux/X11TaskList.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace orvelle {

namespace {

/// Of the client message _NET_WM_STATE.
constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t fromApplication = 1;

bool isListed(const QWindow& window) {
    return window.isTopLevel() && window.isVisible() && window.handle() &&
           !window.flags().testFlag(Qt::X11BypassWindowManagerHint);
}

} // namespace

X11TaskList::X11TaskList(QtApplication& application) : application_(application) {
    QCoreApplication::instance()->installEventFilter(this);
    policy_ = application_.activationPolicy.observe(
        [this](const ActivationPolicy& policy) { apply(policy); });
}

bool X11TaskList::eventFilter(QObject* watched, QEvent* event) {
    // The window manager has taken the window over by the time it is exposed.
    if (event->type() == QEvent::Expose && watched->isWindowType() &&
        application_.activationPolicy == ActivationPolicy::accessory) {
        const auto& window = static_cast<const QWindow&>(*watched);
        if (isListed(window))
            setSkipped(static_cast<xcb_window_t>(window.winId()), true);
    }
    return false;
}

void X11TaskList::apply(ActivationPolicy policy) {
    for (const auto* window : QGuiApplication::topLevelWindows())
        if (isListed(*window))
            setSkipped(static_cast<xcb_window_t>(window->winId()),
                       policy == ActivationPolicy::accessory);
}

void X11TaskList::setSkipped(xcb_window_t window, bool skipped) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = X11::atom("_NET_WM_STATE");
    message.data.data32[0] = skipped ? addState : removeState;
    message.data.data32[1] = X11::atom("_NET_WM_STATE_SKIP_TASKBAR");
    message.data.data32[2] = X11::atom("_NET_WM_STATE_SKIP_PAGER");
    message.data.data32[3] = fromApplication;
    xcb_send_event(X11::connection(), 0, X11::root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(X11::connection());
}

} // namespace orvelle
