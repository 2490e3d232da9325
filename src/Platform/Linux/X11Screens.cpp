#include "Platform/Linux/X11Screens.h"

#include "Platform/Linux/ScreenCoordinates.h"
#include "Platform/Linux/X11Struts.h"

#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformscreen.h>

#include <array>
#include <chrono>
#include <cmath>

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
QRect freePart(const QRect& screen) {
    QRect free = withoutStruts(screen, displaySize(), reservedStruts());
    // With more than one screen the work area spans all of them and says nothing of one.
    if (QGuiApplication::screens().size() == 1 && workArea().intersects(free))
        free &= workArea();
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
    known_ = screens();
    manager_ = desktop_.hasWindowManager.observe([changed](bool) { changed(); });
}

void X11Screens::watch(QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &connections_, [this] { settle_.start(); });
}

void X11Screens::handle(const xcb_generic_event_t& event) {
    if (X11::typeOf(event) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window != X11::root())
        return;
    for (const auto* property : {"_NET_WORKAREA", "_NET_CURRENT_DESKTOP"})
        if (change.atom == X11::atom(property))
            settle_.start();
}

void X11Screens::refresh() {
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
        const QRect free = freePart(pixels);
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
    const double top = length(safeAreaTop, frame.size.height);
    if (top == 0)
        return;
    screen.safeAreaInsets.top = top;
    const double left = length(auxiliaryLeftWidth, frame.size.width);
    const double right = length(auxiliaryRightWidth, frame.size.width);
    if (left == 0 || right == 0 || left + right >= frame.size.width)
        return;
    screen.auxiliaryTopLeftArea = Rect{{frame.minX(), frame.maxY() - top}, {left, top}};
    screen.auxiliaryTopRightArea = Rect{{frame.maxX() - right, frame.maxY() - top}, {right, top}};
}

} // namespace orvelle
