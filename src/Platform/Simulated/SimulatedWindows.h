#pragma once

#include "Foundation/Published.h"
#include "Platform/EventMonitors.h"
#include "Platform/PanelWindow.h"
#include "Platform/Screens.h"

namespace orvelle {

class SimulatedScreens : public Screens {
public:
    /// One screen of 1512 by 982 without a notch, under a menu bar of 24.
    SimulatedScreens();

    std::vector<Screen> list;
    std::optional<Screen> mainScreen;
    void notifyChanged() { changed_(); }

    std::vector<Screen> screens() const override { return list; }
    std::optional<Screen> main() const override { return mainScreen; }
    Subscription observeChanges(std::function<void()> changed) override {
        return changed_.observe(std::move(changed));
    }

private:
    Event<> changed_;
};

/// A window that remembers what was asked of it.
class SimulatedPanelWindow : public PanelWindow {
public:
    SimulatedPanelWindow(const PanelAttributes& requested, const Rect& frame)
        : attributes(requested), frame_(frame) {}

    const PanelAttributes attributes;
    bool isKey = false;
    int orderFrontCount = 0;
    int makeKeyCount = 0;
    int resignKeyCount = 0;
    int setFrameCount = 0;
    PointerEvents pointer;
    DraggingDestination* dragging = nullptr;

    Rect frame() const override { return frame_; }
    void setFrame(const Rect& frame) override {
        frame_ = frame;
        ++setFrameCount;
    }
    bool isVisible() const override { return visible_; }
    void orderFront() override {
        visible_ = true;
        ++orderFrontCount;
    }
    void orderOut() override { visible_ = false; }
    void makeKey() override {
        isKey = true;
        ++makeKeyCount;
    }
    void resignKey() override {
        isKey = false;
        ++resignKeyCount;
    }
    void setPointerEvents(PointerEvents events) override { pointer = std::move(events); }
    void setDraggingDestination(DraggingDestination* destination) override {
        dragging = destination;
    }

private:
    Rect frame_;
    bool visible_ = false;
};

class SimulatedPanelWindows : public PanelWindows {
public:
    std::unique_ptr<PanelWindow> make(const PanelAttributes& attributes,
                                      const Rect& frame) override {
        auto window = std::make_unique<SimulatedPanelWindow>(attributes, frame);
        last = window.get();
        ++count;
        return window;
    }

    SimulatedPanelWindow* last = nullptr; ///< valid while its owner lives
    int count = 0;
};

class SimulatedEventMonitors : public EventMonitors {
public:
    Point location;

    void scroll(const ScrollEvent& event) { scroll_(event); }
    void pressInOwnWindow() { localPress_(); }
    void pressElsewhere() { globalPress_(); }

    Subscription addLocalScrollMonitor(std::function<void(const ScrollEvent&)> handler) override {
        return scroll_.observe(std::move(handler));
    }
    Subscription addLocalMouseDownMonitor(std::function<void()> handler) override {
        return localPress_.observe(std::move(handler));
    }
    Subscription addGlobalMouseDownMonitor(std::function<void()> handler) override {
        return globalPress_.observe(std::move(handler));
    }
    Point mouseLocation() const override { return location; }

private:
    Event<ScrollEvent> scroll_;
    Event<> localPress_;
    Event<> globalPress_;
};

} // namespace orvelle
