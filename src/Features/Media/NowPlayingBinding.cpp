#include "Features/Media/NowPlayingBinding.h"

#include "Features/Media/MediaManager.h"
#include "Features/Theme/ThemeManager.h"

namespace orvelle {

static LoveButtonValue toQt(const NowPlayingView::LoveButton& button) {
    return {toQt(button.symbol), button.opacity, toQt(button.help), button.isEnabled};
}

static ProgressBarValue toQt(const NowPlayingView::ProgressBar& bar) {
    return {bar.fraction, toQt(bar.fillColor)};
}

void NowPlayingBinding::attach(const ViewEnvironment& environment) {
    manager_ = &environment.notch.mediaManager;
    theme_ = &environment.notch.themeManager;
    view_.emplace(manager_->expandedView());
    follow(manager_->currentMedia, manager_->isLoved);
    follow(theme_->themeMode, theme_->customAccentHue, theme_->customAccentSaturation,
           theme_->systemAccentRefresh);
}

void NowPlayingBinding::refresh() {
    show_placeholder(orvelle::toQt(view_->noMediaView()));
    show_accentColor(orvelle::toQt(view_->accentColor(*theme_)));
    show_artwork(orvelle::toQt(view_->artworkView()));
    show_showsVisualizer(view_->showsVisualizer());
    show_appName(orvelle::toQt(view_->appName()));
    show_title(orvelle::toQt(view_->title()));
    show_artist(orvelle::toQt(view_->artist()));
    show_progressBar(toQt(view_->progressBar(*theme_)));
    show_elapsed(orvelle::toQt(view_->elapsed()));
    show_duration(orvelle::toQt(view_->duration()));
    show_loveButton(toQt(view_->loveButton()));
    show_previousButton(orvelle::toQt(view_->previousButton()));
    show_playButton(orvelle::toQt(view_->playButton()));
    show_nextButton(orvelle::toQt(view_->nextButton()));
    show_playName(orvelle::toQt(orvelle::playName(manager_->currentMedia)));
    show_showsMedia(view_->showsMedia());
}

void NowPlayingBinding::toggleLove() {
    manager_->toggleLove();
}

void NowPlayingBinding::previousTrack() {
    manager_->previousTrack();
}

void NowPlayingBinding::playPause() {
    manager_->playPause();
}

void NowPlayingBinding::nextTrack() {
    manager_->nextTrack();
}

} // namespace orvelle
