#pragma once

#include <QQuickItem>
#include <QWheelEvent>

namespace orvelle {

/// Lies over something that scrolls and takes the turns of wheel and touchpad for it. The items
/// themselves hear of none: this is the one place that says whether the views scroll by a turn.
class WheelArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool canScrollUp MEMBER canScrollUp_ FINAL)
    Q_PROPERTY(bool canScrollDown MEMBER canScrollDown_ FINAL)

public:
    using QQuickItem::QQuickItem;

    /// Hands the step to the area under it, of those below `root`, if that can go on that way;
    /// says whether it did.
    static bool scroll(const QQuickItem& root, const QWheelEvent& step);

Q_SIGNALS:
    /// Upwards is positive, a wheel's notch is 120.
    void scrolled(double units);

private:
    static WheelArea* under(const QQuickItem& item, QPointF at);

    bool canScrollUp_ = false;
    bool canScrollDown_ = false;
};

} // namespace orvelle
