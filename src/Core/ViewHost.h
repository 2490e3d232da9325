#pragma once

namespace orvelle {

struct NotchEnvironment;
class PanelWindow;

/// Draws the program's views into its windows. The core hands it what the views need; a test's host
/// may draw nothing.
class ViewHost {
public:
    virtual ~ViewHost() = default;
    /// Fills the notch's window with its content, which follows the window's size from then on.
    virtual void showNotchContent(PanelWindow& window, const NotchEnvironment& environment) = 0;
};

} // namespace orvelle
