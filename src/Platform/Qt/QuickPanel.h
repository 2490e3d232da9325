#pragma once

class QQuickWindow;
class QRegion;

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
};

} // namespace orvelle
