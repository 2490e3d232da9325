#include "Platform/Linux/X11EventMonitors.h"

#include "Platform/Linux/ScreenCoordinates.h"
#include "Platform/Linux/X11PanelWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace orvelle {

static WheelGathering::Answer scrollPanel(const QWindow& window, const QWheelEvent& step) {
    const auto* panel = X11PanelWindow::of(window);
    if (!panel)
        return WheelGathering::Answer::notAsked;
    return panel->scroll(step) ? WheelGathering::Answer::scrolled
                               : WheelGathering::Answer::nothingToScroll;
}

/// Sees events on their way to this process's windows.
class X11EventMonitors::OwnWindows : public QObject {
public:
    explicit OwnWindows(X11EventMonitors& monitors) : monitors_(monitors) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWindowType())
            return false;
        if (event->type() == QEvent::Wheel)
            return monitors_.wheel_.add(static_cast<QWindow&>(*watched),
                                        static_cast<const QWheelEvent&>(*event));
        if (event->type() == QEvent::MouseButtonPress &&
            static_cast<const QMouseEvent&>(*event).button() == Qt::LeftButton)
            monitors_.localPress_();
        return false;
    }

private:
    X11EventMonitors& monitors_;
};

X11EventMonitors::X11EventMonitors(X11RawPresses& presses)
    : wheel_([this](const ScrollEvent& event) { scroll_(event); }, scrollPanel),
      ownWindows_(std::make_unique<OwnWindows>(*this)),
      presses_(presses.observe([this](const X11RawPresses::Press& press) {
          if (press.button == XCB_BUTTON_INDEX_1 && !press.inOwnWindow)
              globalPress_();
      })) {}

X11EventMonitors::~X11EventMonitors() = default;

Subscription
X11EventMonitors::addLocalScrollMonitor(std::function<void(const ScrollEvent&)> handler) {
    return scroll_.observe(std::move(handler));
}

Subscription X11EventMonitors::addLocalMouseDownMonitor(std::function<void()> handler) {
    return localPress_.observe(std::move(handler));
}

Subscription X11EventMonitors::addGlobalMouseDownMonitor(std::function<void()> handler) {
    return globalPress_.observe(std::move(handler));
}

Point X11EventMonitors::mouseLocation() const {
    return ScreenCoordinates::pointer();
}

} // namespace orvelle
