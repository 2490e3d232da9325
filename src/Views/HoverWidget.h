#pragma once

#include "Models/NotchState.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// What plays, as the hover bar shows it. Lengths are points.
struct HoverMediaIndicator {
    static constexpr double spacing = 4;
    static constexpr double coverSize = 18;
    static constexpr double coverRadius = 4;
    static constexpr double buttonSize = 20;
    static constexpr double visualizerWidth = 20;
    static constexpr double visualizerHeight = 16;

    bool hasArtwork = false; ///< without it the `cover` symbol stands in the same square
    StyledSymbol cover;
    StyledSymbol playButton;
    std::string_view playButtonName; ///< what the button does, for those who hear it
    bool isPlaying = false;          ///< the visualizer stands only while something plays
    StyledText title;                ///< a running text, the first to give way when room is short

    bool operator==(const HoverMediaIndicator&) const = default;
};

/// One widget of the hover bar with what it shows now. Lengths are points.
struct HoverWidget {
    enum class Kind {
        texts,   ///< an icon and texts in a row
        media,   ///< the `media` record
        embedded ///< a view of its own, found by the widget's id
    };
    static constexpr double dimmedOpacity = 0.35;
    static constexpr double tapPadding = 4; ///< around the content of a tap target, on all sides

    std::string id;
    ActivePanel panel = ActivePanel::media; ///< what a click on it opens
    Kind kind = Kind::texts;
    std::optional<StyledSymbol> icon;
    std::vector<StyledText> texts;
    double spacing = 4;         ///< between icon and texts
    bool truncatesTail = false; ///< else every text keeps its full width
    bool isDimmed = false;      ///< nobody has told its figures yet, or they are another place's
    std::optional<HoverMediaIndicator> media;

    /// Whether the whole of it takes the click; what plays has targets of its own.
    bool isTapTarget() const { return kind != Kind::media; }
    bool operator==(const HoverWidget&) const = default;
};

} // namespace orvelle
