#include "Features/Media/VolumeRowBinding.h"

#include "Features/HUD/HUDManager.h"

namespace orvelle {

void VolumeRowBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.hudManager;
    view_.emplace(manager, environment.platform);
    follow(manager.currentVolume);
}

void VolumeRowBinding::refresh() {
    show_quietSymbol(toQt(view_->quietSymbol()));
    show_loudSymbol(toQt(view_->loudSymbol()));
    show_hasDevice(view_->hasDevice());
    show_slider(toQt(view_->slider()));
}

void VolumeRowBinding::setVolume(double volume) {
    view_->setVolume(volume);
}

} // namespace orvelle
