#include "Views/PanelPlaceholderBinding.h"

namespace orvelle {

void PanelPlaceholderBinding::attach(const ViewEnvironment& environment) {
    panel_ = environment.notch.notchState.activePanel;
}

void PanelPlaceholderBinding::refresh() {
    show_placeholder(toQt(NotchContentView::panelPlaceholder(panel_)));
}

} // namespace orvelle
