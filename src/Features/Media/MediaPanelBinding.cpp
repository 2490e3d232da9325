#include "Features/Media/MediaPanelBinding.h"

#include "Features/Media/MediaManager.h"
#include "Features/Theme/ThemeManager.h"

namespace orvelle {

void MediaPanelBinding::attach(const ViewEnvironment& environment) {
    const auto& notch = environment.notch;
    manager_ = &notch.mediaManager;
    view_.emplace(notch);
    const auto& theme = notch.themeManager;
    follow(manager_->currentMedia, theme.themeMode, theme.customAccentHue,
           theme.customAccentSaturation, theme.systemAccentRefresh);
}

void MediaPanelBinding::refresh() {
    show_artwork(toQt(view_->artwork()));
    show_title(toQt(view_->title()));
    show_artist(toQt(view_->artist()));
    show_album(toQt(view_->album()));
    show_slider(toQt(view_->slider()));
    show_elapsed(toQt(view_->elapsed()));
    show_duration(toQt(view_->duration()));
    show_previousButton(toQt(view_->previousButton()));
    show_playButton(toQt(view_->playButton()));
    show_nextButton(toQt(view_->nextButton()));
    show_playName(toQt(orvelle::playName(manager_->currentMedia)));
    show_placeholder(toQt(view_->placeholder()));
}

void MediaPanelBinding::previousTrack() {
    manager_->previousTrack();
}

void MediaPanelBinding::playPause() {
    manager_->playPause();
}

void MediaPanelBinding::nextTrack() {
    manager_->nextTrack();
}

MenuValue MediaPanelBinding::contextMenu() const {
    return {mediaContextMenu(*manager_)};
}

} // namespace orvelle
