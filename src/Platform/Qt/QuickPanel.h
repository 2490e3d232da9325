#pragma once

#include <functional>

class QQuickWindow;
class QRegion;
class QWheelEvent;

namespace orvelle {

/// What a panel window offers to views that draw with Qt Quick. A `PanelWindow` that can hold them
/// is one of these too.
class QuickPanel {
public:
    virtual ~QuickPanel() = default;

    virtual QQuickWindow& quickWindow() = 0;
    /// The part that the views draw on, in the window's coordinates with the origin at the top
    /// left; they tell it with each frame that changes it. Where nothing blends windows, only this
    /// part of the window is there.
    virtual void setShapeMask(const QRegion& shape) = 0;
    /// `scrolls` gets the steps of wheel and touchpad over the window before any item does, and
    /// says whether the views have scrolled something by it. A stroke whose first step they scroll
    /// by is theirs to its end; any other is not for them. Of steps up and down their items hear
    /// nothing else.
    virtual void setScroller(std::function<bool(const QWheelEvent&)> scrolls) = 0;
};

} // namespace orvelle
