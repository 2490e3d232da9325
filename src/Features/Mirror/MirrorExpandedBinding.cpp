#include "Features/Mirror/MirrorExpandedBinding.h"

#include "Features/Mirror/MirrorManager.h"

namespace orvelle {

MirrorExpandedBinding::~MirrorExpandedBinding() {
    setOnScreen(false);
}

void MirrorExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.mirrorManager;
    manager_ = &manager;
    view_.emplace(manager, environment.platform);
    follow(manager.latestFrame, manager.isMirrored, manager.hasPermission);
}

void MirrorExpandedBinding::refresh() {
    show_showsPreview(view_->showsPreview());
    show_frame(sharedImage(manager_->latestFrame->value_or(Image())));
    show_horizontalScale(view_->horizontalScale());
    show_startingText(toQt(view_->startingText()));
    show_toggleSymbol(toQt(view_->toggleSymbol()));
    show_toggleHelp(toQt(view_->toggleHelp()));
    show_permissionSymbol(toQt(view_->permissionSymbol()));
    show_permissionTitle(toQt(view_->permissionTitle()));
    show_permissionText(toQt(view_->permissionText()));
    show_settingsButton(toQt(view_->settingsButton()));
}

void MirrorExpandedBinding::setOnScreen(bool isOnScreen) {
    if (isOnScreen == isOnScreen_)
        return;
    isOnScreen_ = isOnScreen;
    if (isOnScreen)
        view_->appear();
    else
        view_->disappear();
    Q_EMIT isOnScreenChanged();
}

void MirrorExpandedBinding::toggleMirrored() {
    view_->toggleMirrored();
}

void MirrorExpandedBinding::openSystemSettings() {
    view_->openSystemSettings();
}

} // namespace orvelle
