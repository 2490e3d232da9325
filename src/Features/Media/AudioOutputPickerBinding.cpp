#include "Features/Media/AudioOutputPickerBinding.h"

namespace orvelle {

void AudioOutputPickerBinding::attach(const ViewEnvironment& environment) {
    view_.emplace(environment.platform);
    view_->refreshDevices();
}

void AudioOutputPickerBinding::refresh() {
    show_label(toQt(view_->label()));
}

MenuValue AudioOutputPickerBinding::menu() {
    return {view_->menu()};
}

} // namespace orvelle
