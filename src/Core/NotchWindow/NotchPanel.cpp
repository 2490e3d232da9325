#include "Core/NotchWindow/NotchPanel.h"

namespace orvelle {

PanelAttributes NotchPanel::attributes() {
    return {.title = "Orvelle Notch",
            .nonactivating = true,
            .borderless = true,
            .aboveMenuBar = true,
            .onAllWorkspaces = true,
            .stationary = true,
            .overFullScreen = true,
            .opaque = false,
            .shadow = false,
            .ignoresMouseEvents = false,
            .movable = false,
            .movableByBackground = false,
            .canBecomeKey = true,
            .canBecomeMain = false};
}

NotchPanel::NotchPanel(PanelWindows& windows, const Rect& contentRect)
    : window_(windows.make(attributes(), contentRect)) {}

} // namespace orvelle
