#pragma once

#include "Features/Media/MediaArtwork.h"
#include "Foundation/Date.h"
#include "Foundation/Geometry.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/TextStyle.h"

#include <string_view>

namespace orvelle {

class MediaManager;
class ThemeManager;

/// What plays, at length: the cover beside a column of the track, its progress, the controls and
/// the volume. Lengths are points.
class NowPlayingView {
public:
    explicit NowPlayingView(MediaManager& manager) : manager_(manager) {}

    struct LoveButton {
        StyledSymbol symbol;
        double opacity = 1;
        std::string_view help;
        bool isEnabled = false;
        bool operator==(const LoveButton&) const = default;
    };
    /// For display: it does not seek.
    struct ProgressBar {
        static constexpr double height = 4;
        static constexpr Color trackColor = Color::white(1, 0.15);
        static constexpr Seconds changeDuration = 0.5; ///< linear; the time between two positions
        double fraction = 0;                           ///< 0 to 1
        Color fillColor;
        double fillWidth(double width) const { return width * fraction; }
        bool operator==(const ProgressBar&) const = default;
    };

    static constexpr double horizontalPadding = 16;
    static constexpr double verticalPadding = 12;
    static constexpr double spacing = 14; ///< between the cover and the column
    static constexpr double progressSpacing = 4;
    static constexpr double visualizerHeight = 24; ///< of the strip at the cover's bottom
    static constexpr Size visualizerPadding{6, 4};
    static constexpr Color shadowColor = Color::white(0, 0.3); ///< around the cover
    static constexpr double shadowRadius = 8;

    bool showsMedia() const;
    FilePlaceholder noMediaView() const;

    Color accentColor(const ThemeManager& theme) const;
    MediaArtwork artworkView() const;
    bool showsVisualizer() const;
    StyledText appName() const;
    StyledText title() const;
    StyledText artist() const;
    ProgressBar progressBar(const ThemeManager& theme) const;
    StyledText elapsed() const;
    StyledText duration() const;
    LoveButton loveButton() const;
    StyledSymbol previousButton() const;
    StyledSymbol playButton() const;
    StyledSymbol nextButton() const;

private:
    MediaManager& manager_;
};

} // namespace orvelle
