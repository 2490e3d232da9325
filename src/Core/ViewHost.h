#pragma once

#include "Foundation/Geometry.h"

#include <functional>
#include <memory>
#include <string>

namespace orvelle {

struct NotchEnvironment;
class PanelWindow;
struct SettingsEnvironment;

/// A window of the program's that the desktop manages like any other: titled, closable, of a fixed
/// size, in the middle of the screen or beneath what it leaves free, and in front when it is made.
/// It leaves the screen when it dies, also when that happens within one of its callbacks.
class AppWindow {
public:
    struct Description {
        std::string title;
        Size contentSize; ///< points
        /// How much at the top of the screen the window leaves free where there is room, in points.
        double topClearance = 0;
    };

    virtual ~AppWindow() = default;
    virtual bool isVisible() const = 0;
    /// In front of other windows and with the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
};

/// Draws the program's views into its windows. The core hands it what the views need; a test's host
/// may draw nothing.
class ViewHost {
public:
    virtual ~ViewHost() = default;
    /// Fills the notch's window with its content, which follows the window's size from then on.
    virtual void showNotchContent(PanelWindow& window, const NotchEnvironment& environment) = 0;
    /// `closed` hears when the user has closed the window, after the present event.
    virtual std::unique_ptr<AppWindow> showSettings(const AppWindow::Description& description,
                                                    const SettingsEnvironment& environment,
                                                    std::function<void()> closed) = 0;
    /// `onComplete` hears when the user has come to the end; `closed` as above.
    virtual std::unique_ptr<AppWindow> showOnboarding(const AppWindow::Description& description,
                                                      const NotchEnvironment& environment,
                                                      std::function<void()> onComplete,
                                                      std::function<void()> closed) = 0;
};

} // namespace orvelle
