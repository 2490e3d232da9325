#pragma once

#include "Foundation/Color.h"
#include "Foundation/Image.h"
#include "Models/MediaInfo.h"
#include "Views/Components/TextStyle.h"

#include <optional>

namespace orvelle {

class ThemeManager;

/// A square with the cover, filling it, or with a symbol on a plain ground. Lengths are points.
struct MediaArtwork {
    double side = 0;
    double cornerRadius = 0;
    std::optional<Image> image;
    StyledSymbol symbol; ///< stands there without an image
    Color background;    ///< behind the symbol
    bool operator==(const MediaArtwork&) const = default;
};

MediaArtwork mediaArtwork(const MediaInfo& media, double side, double cornerRadius,
                          double symbolSize);

/// The accent of what plays: in the theme mode "multicolor" it comes from the cover.
Color mediaAccent(const ThemeManager& theme, const MediaInfo& media);

/// "pause.fill" while it plays, "play.fill" otherwise.
std::string_view playSymbol(const MediaInfo& media);
/// What a click on that does, for those who hear it.
std::string_view playName(const MediaInfo& media);

/// Elapsed of duration, 0 to 1; 0 without a duration.
double progress(const MediaInfo& media);

} // namespace orvelle
