#include "App/PanelWatch.h"

#include "App/AppDelegate.h"
#include "Platform/Qt/QuickPanel.h"
#include "Views/Qt/SpringValue.h"

#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace orvelle::PanelWatch {

/// Loaded views hang in the tree of items, springs in that of objects. A camera that starts has
/// a spinner in its place.
static bool moves(const QQuickItem& item) {
    if (item.isVisible() && item.objectName() == QLatin1String("cameraSpinner"))
        return true;
    for (const auto* spring : item.findChildren<SpringValue*>())
        if (spring->isRunning())
            return true;
    const auto children = item.childItems();
    return std::any_of(children.begin(), children.end(),
                       [](const QQuickItem* child) { return moves(*child); });
}

QQuickWindow* window(AppDelegate& app) {
    if (!app.notchWindowController)
        return nullptr;
    auto* panel = dynamic_cast<QuickPanel*>(app.notchWindowController->window());
    return panel ? &panel->quickWindow() : nullptr;
}

bool isMoving(AppDelegate& app) {
    const auto* panel = window(app);
    return panel &&
           (app.notchWindowController->isAnimatingCollapse() || moves(*panel->contentItem()));
}

} // namespace orvelle::PanelWatch
