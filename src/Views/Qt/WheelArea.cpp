#include "Views/Qt/WheelArea.h"

namespace orvelle {

bool WheelArea::scroll(const QQuickItem& root, const QWheelEvent& step) {
    const int units = step.angleDelta().y();
    auto* area = under(root, root.mapFromScene(step.position()));
    if (!area || !(units > 0 ? area->canScrollUp_ : units < 0 && area->canScrollDown_))
        return false;
    Q_EMIT area->scrolled(units);
    return true;
}

/// What leaves, or has been left, is disabled.
WheelArea* WheelArea::under(const QQuickItem& item, QPointF at) {
    if (!item.isVisible() || !item.isEnabled() || (item.clip() && !item.contains(at)))
        return nullptr;
    const auto children = item.childItems();
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (auto* area = qobject_cast<WheelArea*>(*child); area && area->isVisible() &&
                                                           area->isEnabled() &&
                                                           area->contains(item.mapToItem(area, at)))
            return area;
        if (auto* found = under(**child, item.mapToItem(*child, at)))
            return found;
    }
    return nullptr;
}

} // namespace orvelle
