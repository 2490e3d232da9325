#include "Features/Media/MediaControlsView.h"

#include "Features/Media/MediaManager.h"

namespace orvelle {

bool MediaControlsView::showsContent() const {
    return manager_.hasCollapsedContent();
}

MediaArtwork MediaControlsView::miniArtwork() const {
    return mediaArtwork(manager_.currentMedia, 24, 4, 10);
}

MarqueeText MediaControlsView::title() const {
    const auto& media = manager_.currentMedia.get();
    return {{singleLine(media.title) + " — " + singleLine(media.artist),
             {11, FontWeight::regular, colors::white}}};
}

StyledSymbol MediaControlsView::playButton() const {
    return {playSymbol(manager_.currentMedia), 11, colors::white};
}

void MediaControlsView::playPause() {
    manager_.playPause();
}

} // namespace orvelle
