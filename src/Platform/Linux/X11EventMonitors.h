#pragma once

#include "Foundation/Published.h"
#include "Platform/EventMonitors.h"
#include "Platform/Linux/WheelGathering.h"
#include "Platform/Linux/X11RawPresses.h"

#include <QObject>

namespace orvelle {

/// Watches the program's own windows through Qt, and all others through the server's raw events.
class X11EventMonitors : public EventMonitors {
public:
    explicit X11EventMonitors(X11RawPresses& presses);
    ~X11EventMonitors() override;

    Subscription addLocalScrollMonitor(std::function<void(const ScrollEvent&)> handler) override;
    Subscription addLocalMouseDownMonitor(std::function<void()> handler) override;
    Subscription addGlobalMouseDownMonitor(std::function<void()> handler) override;
    Point mouseLocation() const override;

private:
    class OwnWindows;

    Event<ScrollEvent> scroll_;
    Event<> localPress_;
    Event<> globalPress_;
    WheelGathering wheel_;
    std::unique_ptr<OwnWindows> ownWindows_;
    Subscription presses_;
};

} // namespace orvelle
