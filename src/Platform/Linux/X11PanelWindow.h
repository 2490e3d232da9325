#pragma once

#include "Platform/Linux/PointerTracker.h"
#include "Platform/Linux/X11Desktop.h"
#include "Platform/Linux/X11FileDrag.h"
#include "Platform/Linux/X11KeyFocus.h"
#include "Platform/Linux/X11RawPresses.h"
#include "Platform/PanelWindow.h"
#include "Platform/Qt/QuickPanel.h"

#include <QPointer>
#include <QQuickWindow>
#include <QRegion>
#include <QTimer>

#include <functional>
#include <optional>

namespace orvelle {

/// A translucent window that no window manager touches: above full-screen windows, on every desktop
/// and never activated. It stands below nothing but an active window of the program's own that it
/// would cover.
class X11PanelWindow : public PanelWindow, public QuickPanel {
public:
    X11PanelWindow(X11Desktop& desktop, X11RawPresses& presses, const PanelAttributes& attributes,
                   const Rect& frame);
    ~X11PanelWindow() override;

    /// The panel whose window this is, or null.
    static const X11PanelWindow* of(const QWindow& window);

    /// For the views, which draw into it.
    QQuickWindow& quickWindow() override;
    /// The part that the views draw on, in the window's coordinates with the origin at the top
    /// left; they tell it with each frame that changes it. Without a compositor, which alone can
    /// blend, only this part of the window is there. Until the first call it is the whole window.
    void setShapeMask(const QRegion& shape) override;
    void setScroller(std::function<bool(const QWheelEvent&)> scrolls) override;
    /// Hands the step to the views; false when they have nothing to scroll by it.
    bool scroll(const QWheelEvent& step) const;

    Rect frame() const override { return frame_; }
    void setFrame(const Rect& frame) override;
    bool isVisible() const override;
    void orderFront() override;
    void orderOut() override;
    void makeKey() override;
    void resignKey() override;
    void setPointerEvents(PointerEvents events) override;
    void setDraggingDestination(DraggingDestination* destination) override;

private:
    class Window;

    void prepareWindow();
    bool isIntact() const;
    /// What was done to the window is looked at later, and only if the server told of something.
    void noteFate(const xcb_generic_event_t& event);
    /// Undoes what other programs did to the window: closed, unmapped or moved it elsewhere, or
    /// took its shape away.
    void restore();
    void applyMask();
    void pointerInside();
    void pointerOutside();
    void answerDrag(QDropEvent& event) const;
    void report(PointerTracker::Crossing crossing);
    /// `pointer` is where it was just before the change: it may already be on its way in.
    void frameSettled(Point pointer);
    void followRivals(bool wanted);
    void handle(const xcb_generic_event_t& event);
    void followActiveWindow(QWindow* active);
    bool coversActiveWindow() const;
    void yieldToActiveWindow();
    void restack();
    void raise();

    X11Desktop& desktop_;
    PanelAttributes attributes_;
    Rect frame_; ///< as asked for; the window stands on whole points
    std::unique_ptr<Window> window_;
    X11KeyFocus focus_;
    std::optional<X11FileDrag> fileDrag_; ///< there from the window's making on
    DraggingDestination* destination_ = nullptr;
    xcb_window_t native_ = XCB_WINDOW_NONE; ///< the toolkit may make another, without what is set
    bool isOrderedIn_ = false;
    bool isSuspect_ = false; ///< hidden, moved elsewhere or destroyed, by whomever
    QRegion shape_;          ///< empty until the views told it
    std::function<bool(const QWheelEvent&)> scroller_;
    PointerEvents pointerEvents_;
    PointerTracker pointer_;
    QTimer unsurePointer_;
    QTimer raiseSoon_;
    QPointer<QWindow> active_; ///< the program's own, of those that a window manager manages
    bool isLowered_ = false;   ///< below the active window
    Subscription fate_;
    Subscription dragging_;
    Subscription compositor_;
    Subscription manager_;
    Subscription rivals_;
    Subscription presses_;
};

} // namespace orvelle
