#include "Features/Media/HoverMediaBinding.h"

#include "Features/Media/MediaManager.h"
#include "Features/Media/MediaPanelView.h"
#include "Features/Theme/ThemeManager.h"
#include "Platform/Appearance.h"

namespace orvelle {

void HoverMediaBinding::attach(const ViewEnvironment& environment) {
    manager_ = &environment.notch.mediaManager;
    appearance_ = &environment.platform.appearance();
    follow(manager_->currentMedia, environment.notch.themeManager.systemAccentRefresh);
}

void HoverMediaBinding::refresh() {
    show_artwork({manager_->currentMedia->artwork.value_or(Image())});
    show_tint(toQt(appearance_->controlAccentColor()));
}

MenuValue HoverMediaBinding::contextMenu() const {
    return {mediaContextMenu(*manager_)};
}

} // namespace orvelle
