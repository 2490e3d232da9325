#include "Features/Media/NowPlayingView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Media/MarqueeText.h"
#include "Features/Media/MediaManager.h"
#include "Features/Media/MediaScripts.h"
#include "Models/Symbol.h"

#include <algorithm>

namespace orvelle {

namespace {

// The system's text styles.
constexpr TextStyle headline{13, FontWeight::bold, notchAccent};
constexpr TextStyle subheadline{11, FontWeight::regular, notchSecondary};
constexpr TextStyle caption2{10, FontWeight::regular, notchTertiary};

} // namespace

bool NowPlayingView::showsMedia() const {
    return manager_.hasCollapsedContent();
}

FilePlaceholder NowPlayingView::noMediaView() const {
    return {{"music.note.list"_symbol, 28, notchTertiary}, {"No Media Playing", subheadline}};
}

Color NowPlayingView::accentColor(const ThemeManager& theme) const {
    return mediaAccent(theme, manager_.currentMedia);
}

MediaArtwork NowPlayingView::artworkView() const {
    return mediaArtwork(manager_.currentMedia, 80, 10, 28);
}

bool NowPlayingView::showsVisualizer() const {
    return manager_.currentMedia->isPlaying;
}

StyledText NowPlayingView::appName() const {
    return {singleLine(manager_.currentMedia->appName), {9, FontWeight::medium, notchTertiary}};
}

StyledText NowPlayingView::title() const {
    return {singleLine(manager_.currentMedia->title), headline};
}

StyledText NowPlayingView::artist() const {
    return {singleLine(manager_.currentMedia->artist), subheadline};
}

NowPlayingView::ProgressBar NowPlayingView::progressBar(const ThemeManager& theme) const {
    return {progress(manager_.currentMedia), accentColor(theme)};
}

StyledText NowPlayingView::elapsed() const {
    return {manager_.currentMedia->formattedElapsed(), caption2};
}

StyledText NowPlayingView::duration() const {
    return {manager_.currentMedia->formattedDuration(), caption2};
}

NowPlayingView::LoveButton NowPlayingView::loveButton() const {
    const bool isLoved = manager_.isLoved;
    const bool isSupported = manager_.currentMedia->appBundleIdentifier == MediaScripts::music;
    return {{isLoved ? "heart.fill"_symbol : "heart"_symbol, 14,
             isLoved ? colors::pink : notchSecondary},
            isSupported ? 1.0 : 0.3,
            isSupported ? "Love" : "Not supported for this app",
            isSupported};
}

StyledSymbol NowPlayingView::previousButton() const {
    return {"backward.fill"_symbol, 16, colors::white};
}

StyledSymbol NowPlayingView::playButton() const {
    return {playSymbol(manager_.currentMedia), 22, colors::white};
}

StyledSymbol NowPlayingView::nextButton() const {
    return {"forward.fill"_symbol, 16, colors::white};
}

} // namespace orvelle
