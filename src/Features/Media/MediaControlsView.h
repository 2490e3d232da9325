#pragma once

#include "Features/Media/MarqueeText.h"
#include "Features/Media/MediaArtwork.h"
#include "Views/Components/TextStyle.h"

namespace orvelle {

class MediaManager;

/// What plays, on one line: a small cover, the running title and the play button. Lengths are
/// points.
class MediaControlsView {
public:
    explicit MediaControlsView(MediaManager& manager) : manager_(manager) {}

    static constexpr double horizontalPadding = 8;
    static constexpr double verticalPadding = 6;
    static constexpr double titleWidth = 120; ///< at most
    static constexpr double spacing = 8;

    /// False while nothing plays; then nothing is drawn.
    bool showsContent() const;
    MediaArtwork miniArtwork() const;
    MarqueeText title() const;
    StyledSymbol playButton() const;
    void playPause();

private:
    MediaManager& manager_;
};

} // namespace orvelle
