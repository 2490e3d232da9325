#include "Views/PanelPlaceholderBinding.h"

namespace orvelle {

void PanelPlaceholderBinding::attach(const ViewEnvironment& environment) {
    view_.emplace(environment.notch, std::function<void()>{}, environment.platform);
}

void PanelPlaceholderBinding::refresh() {
    show_placeholder(toQt(view_->panelPlaceholder()));
}

} // namespace orvelle
