#include "Features/Media/MediaPanelView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Media/MarqueeText.h"
#include "Features/Media/MediaManager.h"
#include "Models/Symbol.h"

namespace orvelle {

namespace {

StyledText timeText(std::string text) {
    return {std::move(text), {10, FontWeight::regular, notchSecondary}};
}

} // namespace

MediaPanelView::MediaPanelView(const NotchEnvironment& environment)
    : manager_(environment.mediaManager), theme_(environment.themeManager) {}

std::optional<FilePlaceholder> MediaPanelView::placeholder() const {
    if (!manager_.currentMedia->title.empty())
        return std::nullopt;
    return filePlaceholder("No media playing", "music.note"_symbol);
}

Color MediaPanelView::accentColor() const {
    return mediaAccent(theme_, manager_.currentMedia);
}

MediaArtwork MediaPanelView::artwork() const {
    return mediaArtwork(manager_.currentMedia, 60, 8, 24);
}

StyledText MediaPanelView::title() const {
    return {singleLine(manager_.currentMedia->title), {14, FontWeight::semibold, colors::white}};
}

StyledText MediaPanelView::artist() const {
    return {singleLine(manager_.currentMedia->artist), {12, FontWeight::regular, notchSecondary}};
}

StyledText MediaPanelView::album() const {
    return {singleLine(manager_.currentMedia->album), {11, FontWeight::regular, notchTertiary}};
}

AnimatedSlider MediaPanelView::slider() const {
    // Without a knob, for it cannot be dragged.
    return {.value = progress(manager_.currentMedia),
            .tintColor = accentColor(),
            .height = 4,
            .showThumb = false};
}

StyledText MediaPanelView::elapsed() const {
    return timeText(manager_.currentMedia->formattedElapsed());
}

StyledText MediaPanelView::duration() const {
    return timeText(manager_.currentMedia->formattedDuration());
}

StyledSymbol MediaPanelView::previousButton() const {
    return {"backward.fill"_symbol, 16, colors::white};
}

StyledSymbol MediaPanelView::playButton() const {
    return {playSymbol(manager_.currentMedia), 22, accentColor()};
}

StyledSymbol MediaPanelView::nextButton() const {
    return {"forward.fill"_symbol, 16, colors::white};
}

std::vector<MenuEntry> mediaContextMenu(MediaManager& manager) {
    const auto& media = manager.currentMedia.get();
    if (media.title.empty() || media.appName.empty())
        return {};
    return {{"Open in " + singleLine(media.appName), [&manager] { manager.openSourceApp(); }}};
}

} // namespace orvelle
