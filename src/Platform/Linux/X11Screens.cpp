#include "Platform/Linux/X11Screens.h"

#include "Platform/Linux/ScreenCoordinates.h"
#include "Platform/PlatformSettings.h"

#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformscreen.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace orvelle {

namespace {

/// A change of the display comes as several events: the screen's first, the work area's after it.
constexpr std::chrono::milliseconds settleTime{30};

QSize displaySize() {
    QRect whole;
    for (const auto* screen : QGuiApplication::screens())
        whole |= screen->handle()->geometry();
    return {whole.right() + 1, whole.bottom() + 1};
}

/// The part of a screen that is free, in the display's pixels.
QRect freePart(const QRect& screen, const X11Reservations& reserved) {
    QRect free = withoutStruts(screen, displaySize(), reserved.struts);
    // With more than one screen the work area spans all of them and says nothing of one.
    if (QGuiApplication::screens().size() == 1 && reserved.workArea.intersects(free))
        free &= reserved.workArea;
    return free;
}

} // namespace

X11Screens::X11Screens(X11Desktop& desktop, UserDefaults& defaults)
    : desktop_(desktop), defaults_(defaults) {
    settle_.setSingleShot(true);
    settle_.setInterval(settleTime);
    QObject::connect(&settle_, &QTimer::timeout, &connections_, [this] { refresh(); });

    const auto changed = [this] { settle_.start(); };
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &connections_,
                     [this, changed](QScreen* screen) {
                         watch(screen);
                         changed();
                     });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &connections_, changed);
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &connections_, changed);
    for (auto* screen : QGuiApplication::screens())
        watch(screen);

    X11::selectEvents(X11::root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
    settings_ = defaults_.observeChanges(changed);
    manager_ = desktop_.hasWindowManager.observe([this](bool) { reservationsChanged(); });
    readReservations();
    known_ = screens();
}

void X11Screens::watch(QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &connections_, [this] { settle_.start(); });
}

void X11Screens::handle(const xcb_generic_event_t& event) {
    if (X11::typeOf(event) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    const bool isRoot = change.window == X11::root();
    for (const auto* property : {"_NET_CLIENT_LIST", "_NET_WORKAREA", "_NET_CURRENT_DESKTOP"})
        if (isRoot && change.atom == X11::atom(property))
            reservationsChanged();
    for (const auto* property : {"_NET_WM_STRUT_PARTIAL", "_NET_WM_STRUT"})
        if (!isRoot && change.atom == X11::atom(property))
            reservationsChanged();
}

void X11Screens::reservationsChanged() {
    areReservationsStale_ = true;
    settle_.start();
}

void X11Screens::readReservations() {
    areReservationsStale_ = false;
    const auto before = std::exchange(reservations_, X11Reservations::read()).strutWindows;
    for (const auto window : reservations_.strutWindows)
        if (std::ranges::find(before, window) == before.end())
            X11::selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void X11Screens::refresh() {
    if (areReservationsStale_)
        readReservations();
    auto present = screens();
    if (present == known_)
        return;
    known_ = std::move(present);
    changed_();
}

std::vector<Screen> X11Screens::screens() const {
    std::vector<Screen> list;
    for (const auto* screen : QGuiApplication::screens()) {
        if (screen->geometry().isEmpty()) // stands in while no screen is connected
            continue;
        list.push_back(describe(*screen));
        if (screen == QGuiApplication::primaryScreen())
            addNotch(list.back());
    }
    return list;
}

std::optional<Screen> X11Screens::main() const {
    // The toolkit lists the primary screen first.
    const auto list = screens();
    return list.empty() ? std::nullopt : std::optional(list.front());
}

Subscription X11Screens::observeChanges(std::function<void()> changed) {
    return changed_.observe(std::move(changed));
}

Screen X11Screens::describe(const QScreen& screen) const {
    Screen description;
    const auto name = screen.model().isEmpty() ? screen.name() : screen.model();
    description.localizedName = name.toStdString();
    const QRectF frame = screen.geometry();
    description.frame = ScreenCoordinates::fromQt(frame);
    description.visibleFrame = description.frame;
    if (desktop_.hasWindowManager.get()) {
        const QRect pixels = screen.handle()->geometry();
        const QRect free = freePart(pixels, reservations_);
        const qreal scale = pixels.width() / frame.width();
        const QPointF corner = frame.topLeft() + QPointF(free.topLeft() - pixels.topLeft()) / scale;
        description.visibleFrame =
            ScreenCoordinates::fromQt(QRectF(corner, QSizeF(free.size()) / scale));
    }
    return description;
}

void X11Screens::addNotch(Screen& screen) const {
    const auto length = [this](std::string_view key, double limit) {
        const double value = defaults_.number(key);
        return std::isfinite(value) && value > 0 && value < limit ? value : 0;
    };
    const Rect& frame = screen.frame;
    const double top = length(PlatformSettings::safeAreaTop, frame.size.height);
    if (top == 0)
        return;
    screen.safeAreaInsets.top = top;
    const double left = length(PlatformSettings::auxiliaryLeftWidth, frame.size.width);
    const double right = length(PlatformSettings::auxiliaryRightWidth, frame.size.width);
    if (left == 0 || right == 0 || left + right >= frame.size.width)
        return;
    screen.auxiliaryTopLeftArea = Rect{{frame.minX(), frame.maxY() - top}, {left, top}};
    screen.auxiliaryTopRightArea = Rect{{frame.maxX() - right, frame.maxY() - top}, {right, top}};
}

} // namespace orvelle
