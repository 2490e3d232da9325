#include "Platform/Linux/X11PanelWindow.h"

#include "Platform/Linux/ScreenCoordinates.h"
#include "Platform/Linux/X11ClientWindows.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QSurfaceFormat>
#include <xcb/shape.h>

#include <chrono>
#include <string_view>
#include <utility>

namespace orvelle {

namespace {

/// Both the instance and the class, each ended by a NUL.
constexpr std::string_view windowClass{"orvelle\0orvelle\0", 16};

/// Many windows may come at once, as when a desktop starts; the panel goes above all of them once.
constexpr std::chrono::milliseconds raiseDelay{30};
constexpr std::chrono::milliseconds unsurePointerInterval{100};

bool isManaged(const QWindow& window) {
    return (window.type() == Qt::Window || window.type() == Qt::Dialog) &&
           !window.flags().testFlag(Qt::X11BypassWindowManagerHint);
}

} // namespace

class X11PanelWindow::Window : public QQuickWindow {
public:
    explicit Window(X11PanelWindow& owner) : panel(owner) {}

    X11PanelWindow& panel;

protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
        case QEvent::Enter:
        case QEvent::MouseMove:
            panel.pointerInside();
            break;
        case QEvent::Leave:
            panel.pointerOutside();
            break;
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            panel.answerDrag(static_cast<QDropEvent&>(*event));
            return true;
        case QEvent::DragLeave:
            return true;
        default:
            break;
        }
        return QQuickWindow::event(event);
    }
};

X11PanelWindow::X11PanelWindow(X11Desktop& desktop, X11RawPresses& presses,
                               const PanelAttributes& attributes, const Rect& frame)
    : desktop_(desktop), attributes_(attributes), frame_(frame),
      window_(std::make_unique<Window>(*this)), focus_(*window_) {
    prepareWindow();

    unsurePointer_.setInterval(unsurePointerInterval);
    QObject::connect(&unsurePointer_, &QTimer::timeout, window_.get(),
                     [this] { pointerOutside(); });
    raiseSoon_.setSingleShot(true);
    raiseSoon_.setInterval(raiseDelay);
    QObject::connect(&raiseSoon_, &QTimer::timeout, window_.get(), [this] { restack(); });
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, window_.get(),
                     [this](QWindow* active) { followActiveWindow(active); });
    followActiveWindow(QGuiApplication::focusWindow());

    fate_ = X11::observeEvents([this](const auto& event) { noteFate(event); });
    compositor_ = desktop_.isComposited.observe([this](bool) { applyMask(); });
    manager_ = desktop_.hasWindowManager.observe([this](bool found) { followRivals(!found); });
    presses_ = presses.observe([this](const X11RawPresses::Press& press) {
        if (!press.inOwnWindow)
            resignKey();
    });
}

X11PanelWindow::~X11PanelWindow() = default;

const X11PanelWindow* X11PanelWindow::of(const QWindow& window) {
    const auto* own = dynamic_cast<const Window*>(&window);
    return own ? &own->panel : nullptr;
}

void X11PanelWindow::prepareWindow() {
    auto flags =
        Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::NoDropShadowWindowHint;
    if (attributes_.aboveMenuBar)
        flags |= Qt::WindowStaysOnTopHint;
    if (attributes_.ignoresMouseEvents)
        flags |= Qt::WindowTransparentForInput;
    window_->setFlags(flags);
    window_->setTitle(QString::fromStdString(attributes_.title));
    if (!attributes_.opaque) {
        auto format = window_->format();
        format.setAlphaBufferSize(8);
        window_->setFormat(format);
        window_->setColor(Qt::transparent);
    }
    window_->setGeometry(ScreenCoordinates::toQt(frame_));
    window_->create();

    auto* connection = X11::connection();
    const auto id = static_cast<xcb_window_t>(window_->winId());
    native_ = id;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                        8, windowClass.size(), windowClass.data());
    // What is drawn hangs from the middle of the top edge, and stays there when the window grows.
    const std::uint32_t gravity = XCB_GRAVITY_NORTH;
    xcb_change_window_attributes(connection, id, XCB_CW_BIT_GRAVITY, &gravity);
    dragging_.reset();
    fileDrag_.emplace(id);
    fileDrag_->setDestination(destination_);
    dragging_ = fileDrag_->mayBeTaken.observe([this](bool) { applyMask(); });
}

/// Whether other programs have left the window where it was made.
bool X11PanelWindow::isIntact() const {
    if (!window_->handle() || window_->winId() != native_)
        return false;
    auto* connection = X11::connection();
    const auto id = native_;
    const X11::Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, id), nullptr));
    const X11::Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, id), nullptr));
    return tree && tree->parent == X11::root() && attributes &&
           (attributes->map_state != XCB_MAP_STATE_UNMAPPED) == window_->isVisible();
}

void X11PanelWindow::noteFate(const xcb_generic_event_t& event) {
    xcb_window_t window = XCB_WINDOW_NONE;
    if (X11::typeOf(event) == XCB_UNMAP_NOTIFY)
        window = reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    else if (X11::typeOf(event) == XCB_REPARENT_NOTIFY)
        window = reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    else if (X11::typeOf(event) == XCB_DESTROY_NOTIFY)
        window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    isSuspect_ |= window != XCB_WINDOW_NONE && window == native_;
}

void X11PanelWindow::restore() {
    const bool isSuspect = std::exchange(isSuspect_, false) || !window_->handle();
    if (isSuspect && !isIntact()) {
        window_->hide();
        window_->destroy();
        prepareWindow();
    }
    applyMask();
    if (!attributes_.ignoresMouseEvents)
        xcb_shape_mask(X11::connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, native_, 0, 0,
                       XCB_PIXMAP_NONE);
}

QQuickWindow& X11PanelWindow::quickWindow() {
    return *window_;
}

void X11PanelWindow::setFrame(const Rect& frame) {
    frame_ = frame;
    const QRect before = window_->geometry();
    const QRect after = ScreenCoordinates::toQt(frame);
    Point pointer;
    {
        const X11::ServerGrab grab;
        pointer = ScreenCoordinates::pointer();
        window_->setGeometry(after);
        shape_.translate(before.topLeft() - after.topLeft());
        applyMask();
    }
    yieldToActiveWindow();
    frameSettled(pointer);
}

void X11PanelWindow::setShapeMask(const QRegion& shape) {
    if (shape == shape_)
        return;
    shape_ = shape;
    if (!desktop_.isComposited)
        applyMask();
}

void X11PanelWindow::setScroller(std::function<bool(const QWheelEvent&)> scrolls) {
    scroller_ = std::move(scrolls);
}

bool X11PanelWindow::scroll(const QWheelEvent& step) const {
    return scroller_ && scroller_(step);
}

void X11PanelWindow::applyMask() {
    const QRegion whole(QRect(QPoint(), window_->size()));
    const QRegion drawn = shape_ & whole;
    // A drag is faster than what is drawn grows, and would be off the window before.
    const bool isWhole = desktop_.isComposited || drawn.isEmpty() || fileDrag_->mayBeTaken;
    // Set with every resize even when it is the whole window: a drag's source remembers the shape
    // of the windows under it, and looks again only when it is set.
    window_->setMask(isWhole ? whole : drawn);
    xcb_flush(X11::connection());
}

bool X11PanelWindow::isVisible() const {
    return isOrderedIn_;
}

void X11PanelWindow::orderFront() {
    isOrderedIn_ = true;
    restore();
    if (!window_->isVisible()) {
        const Point pointer = ScreenCoordinates::pointer();
        window_->show();
        frameSettled(pointer);
    }
    restack();
}

void X11PanelWindow::orderOut() {
    isOrderedIn_ = false;
    resignKey();
    window_->hide();
    frameSettled(ScreenCoordinates::pointer());
}

void X11PanelWindow::makeKey() {
    if (attributes_.canBecomeKey)
        focus_.take();
}

void X11PanelWindow::resignKey() {
    focus_.giveBack();
}

void X11PanelWindow::setPointerEvents(PointerEvents events) {
    pointerEvents_ = std::move(events);
}

void X11PanelWindow::setDraggingDestination(DraggingDestination* destination) {
    destination_ = destination;
    fileDrag_->setDestination(destination);
}

/// Tells the drag's source whether a drop would be taken. What the program itself drags comes by no
/// message, and so is nothing to the follower of drags.
void X11PanelWindow::answerDrag(QDropEvent& event) const {
    const bool isTaken = event.type() == QEvent::Drop || fileDrag_->mayBeTaken;
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(isTaken);
}

void X11PanelWindow::pointerInside() {
    report(pointer_.reportedInside(ScreenCoordinates::pointer()));
}

void X11PanelWindow::pointerOutside() {
    report(pointer_.reportedOutside(ScreenCoordinates::pointer()));
}

void X11PanelWindow::report(PointerTracker::Crossing crossing) {
    if (!pointer_.isUnsure())
        unsurePointer_.stop();
    else if (!unsurePointer_.isActive())
        unsurePointer_.start();

    const auto events = pointerEvents_; // a handler may set others
    if (crossing == PointerTracker::Crossing::entered && events.entered)
        events.entered();
    else if (crossing == PointerTracker::Crossing::exited && events.exited)
        events.exited();
}

void X11PanelWindow::frameSettled(Point pointer) {
    const auto frame = isVisible()
                           ? std::optional(ScreenCoordinates::fromQt(QRectF(window_->geometry())))
                           : std::nullopt;
    pointer_.frameChanged(frame, pointer);
}

void X11PanelWindow::followRivals(bool wanted) {
    // A window manager keeps its windows below; without one, whoever comes last is on top.
    X11::selectEvents(X11::root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY, wanted);
    rivals_.reset();
    if (wanted)
        rivals_ = X11::observeEvents([this](const auto& event) { handle(event); });
}

void X11PanelWindow::handle(const xcb_generic_event_t& event) {
    // Menus and tooltips bypass a window manager too, and rightly stand above the panel.
    bool isRival = false;
    if (X11::typeOf(event) == XCB_MAP_NOTIFY)
        isRival = !reinterpret_cast<const xcb_map_notify_event_t&>(event).override_redirect;
    else if (X11::typeOf(event) == XCB_CONFIGURE_NOTIFY)
        isRival = !reinterpret_cast<const xcb_configure_notify_event_t&>(event).override_redirect;
    if (isRival && isVisible() && !raiseSoon_.isActive())
        raiseSoon_.start();
}

void X11PanelWindow::followActiveWindow(QWindow* active) {
    if (active_)
        QObject::disconnect(active_.data(), nullptr, window_.get(), nullptr);
    active_ = active && isManaged(*active) ? active : nullptr;
    if (active_)
        for (const auto moved : {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged,
                                 &QWindow::heightChanged})
            QObject::connect(active_.data(), moved, window_.get(),
                             [this] { yieldToActiveWindow(); });
    if (isVisible() && (isLowered_ || coversActiveWindow()))
        restack();
}

bool X11PanelWindow::coversActiveWindow() const {
    return active_ && active_->isVisible() &&
           active_->frameGeometry().intersects(window_->geometry());
}

void X11PanelWindow::yieldToActiveWindow() {
    if (isVisible() && isLowered_ != coversActiveWindow())
        restack();
}

void X11PanelWindow::restack() {
    isLowered_ = coversActiveWindow();
    if (isLowered_) {
        const X11::ServerGrab grab; // the frame stands until it is named
        const std::uint32_t place[] = {X11::frameOf(static_cast<xcb_window_t>(active_->winId())),
                                       XCB_STACK_MODE_BELOW};
        xcb_configure_window(X11::connection(), static_cast<xcb_window_t>(window_->winId()),
                             XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, place);
    } else {
        raise();
    }
    xcb_flush(X11::connection());
}

void X11PanelWindow::raise() {
    window_->raise();
    for (auto* other : QGuiApplication::topLevelWindows()) {
        const bool isMenu = other->flags().testFlag(Qt::X11BypassWindowManagerHint) && !of(*other);
        if (isMenu && other->isVisible())
            other->raise();
    }
}

} // namespace orvelle
