#pragma once

class QQuickItem;
class QQuickWindow;

namespace orvelle {

class AppDelegate;

/// What pictures of the running panel need to know about it.
namespace PanelWatch {

/// The panel's window; null before there is one.
QQuickWindow* window(AppDelegate& app);
/// Whether anything in the panel is on its way, or the panel itself.
bool isMoving(AppDelegate& app);

} // namespace PanelWatch

} // namespace orvelle
