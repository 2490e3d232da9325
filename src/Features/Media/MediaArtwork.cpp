#include "Features/Media/MediaArtwork.h"

#include "Extensions/ColorTheme.h"
#include "Features/Theme/ThemeManager.h"
#include "Models/Symbol.h"
#include "Models/ThemeMode.h"

#include <algorithm>

namespace orvelle {

MediaArtwork mediaArtwork(const MediaInfo& media, double side, double cornerRadius,
                          double symbolSize) {
    return {side,
            cornerRadius,
            media.artwork,
            {"music.note"_symbol, symbolSize, notchSecondary},
            notchSurface};
}

Color mediaAccent(const ThemeManager& theme, const MediaInfo& media) {
    if (themeModeFrom(theme.themeMode.get()) == ThemeMode::multicolor)
        return adaptiveAccent(media.artwork);
    return theme.accentColor();
}

std::string_view playSymbol(const MediaInfo& media) {
    return media.isPlaying ? "pause.fill"_symbol : "play.fill"_symbol;
}

std::string_view playName(const MediaInfo& media) {
    return media.isPlaying ? "Pause" : "Play";
}

double progress(const MediaInfo& media) {
    return media.duration > 0 ? std::clamp(media.elapsed / media.duration, 0.0, 1.0) : 0;
}

} // namespace orvelle
