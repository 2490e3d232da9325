#include "Features/Mirror/MirrorExpandedBinding.h"

#include "Features/Mirror/MirrorManager.h"

namespace orvelle {

namespace {

/// Shares the pixels.
QImage toQt(const std::optional<Image>& image) {
    if (!image || !image->pixels())
        return {};
    return QImage(
        image->pixels(), image->width(), image->height(), image->width() * 4,
        QImage::Format_RGBA8888, [](void* owner) { delete static_cast<Image*>(owner); },
        new Image(*image));
}

} // namespace

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
    show_frame(toQt(manager_->latestFrame.get()));
    show_horizontalScale(view_->horizontalScale());
    show_startingText(orvelle::toQt(view_->startingText()));
    show_toggleSymbol(orvelle::toQt(view_->toggleSymbol()));
    show_toggleHelp(orvelle::toQt(view_->toggleHelp()));
    show_permissionSymbol(orvelle::toQt(view_->permissionSymbol()));
    show_permissionTitle(orvelle::toQt(view_->permissionTitle()));
    show_permissionText(orvelle::toQt(view_->permissionText()));
    show_settingsButton(orvelle::toQt(view_->settingsButton()));
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
