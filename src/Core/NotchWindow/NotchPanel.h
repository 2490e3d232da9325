#pragma once

#include "Foundation/Geometry.h"
#include "Platform/PanelWindow.h"

#include <memory>

namespace orvelle {

/// The borderless panel that floats above everything at the top of the screen and never activates
/// the program.
class NotchPanel {
public:
    static PanelAttributes attributes();

    NotchPanel(PanelWindows& windows, const Rect& contentRect);

    PanelWindow& window() { return *window_; }
    const PanelWindow& window() const { return *window_; }

private:
    std::unique_ptr<PanelWindow> window_;
};

} // namespace orvelle
