#include "Features/Media/MediaControlsBinding.h"

#include "Features/Media/MediaManager.h"

namespace orvelle {

void MediaControlsBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.mediaManager;
    manager_ = &manager;
    view_.emplace(manager.collapsedView());
    follow(manager.currentMedia);
}

void MediaControlsBinding::refresh() {
    show_miniArtwork(toQt(view_->miniArtwork()));
    show_title(toQt(view_->title().text));
    show_playButton(toQt(view_->playButton()));
    show_playName(toQt(orvelle::playName(manager_->currentMedia)));
    show_showsContent(view_->showsContent());
}

void MediaControlsBinding::playPause() {
    view_->playPause();
}

} // namespace orvelle
