#include "Views/PanelPlaceholderBinding.h"

#include "Features/Media/MediaManager.h"

namespace orvelle {

void PanelPlaceholderBinding::attach(const ViewEnvironment& environment) {
    view_.emplace(environment.notch, std::function<void()>{}, environment.platform);
    panel_ = environment.notch.notchState.activePanel;
    follow(environment.notch.mediaManager.currentMedia);
}

void PanelPlaceholderBinding::refresh() {
    show_placeholder(toQt(view_->panelPlaceholder(panel_)));
}

} // namespace orvelle
