#pragma once

#include "Core/NotchEnvironment.h"
#include "Features/Media/MediaArtwork.h"
#include "Views/Components/AnimatedSlider.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <vector>

namespace orvelle {

/// The media panel: a row of the cover and the track's texts, below it the position with its time
/// line, and the transport row. Lengths are points.
class MediaPanelView {
public:
    explicit MediaPanelView(const NotchEnvironment& environment);

    static constexpr double rowSpacing = 12;
    static constexpr double textSpacing = 4;
    static constexpr double sliderTopPadding = 4;
    static constexpr double transportSpacing = 24;

    /// What stands there while nothing plays.
    std::optional<FilePlaceholder> placeholder() const;

    Color accentColor() const;
    MediaArtwork artwork() const;
    StyledText title() const;
    StyledText artist() const;
    StyledText album() const;
    /// The position, not to be moved.
    AnimatedSlider slider() const;
    StyledText elapsed() const;
    StyledText duration() const;
    StyledSymbol previousButton() const;
    StyledSymbol playButton() const;
    StyledSymbol nextButton() const;

private:
    const MediaManager& manager_;
    const ThemeManager& theme_;
};

/// The context menu of what plays, in the panel and in the hover bar.
std::vector<MenuEntry> mediaContextMenu(MediaManager& manager);

} // namespace orvelle
