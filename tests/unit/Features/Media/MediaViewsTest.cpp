#include "Extensions/ColorTheme.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/AudioOutputPicker.h"
#include "Features/Media/AudioVisualizer.h"
#include "Features/Media/MarqueeText.h"
#include "Features/Media/MediaArtwork.h"
#include "Features/Media/MediaPanelView.h"
#include "Features/Media/VolumeRow.h"
#include "Support/MediaFixture.h"
#include "Support/ViewFixture.h"

#include <algorithm>

namespace orvelle {
namespace {

TEST(MarqueeTextTest, ATitleThatFitsStandsStillAndOneTenPointsTooWideScrolls) {
    EXPECT_FALSE(MarqueeText::scrolls(100, 100));
    EXPECT_FALSE(MarqueeText::scrolls(20, 100));
    EXPECT_TRUE(MarqueeText::scrolls(110, 100));
}

TEST(MarqueeTextTest, ItRunsAtThirtyPointsASecondToThePlaceOfTheSecondCopy) {
    EXPECT_EQ(MarqueeText::travel(110), 150);
    EXPECT_EQ(MarqueeText::duration(110), 5);
    EXPECT_EQ(MarqueeText::restartDelay, 0.15) << "after another text has come";
}

TEST(SingleLineTest, CutsAtACharacterAndLeavesNoControls) {
    EXPECT_EQ(singleLine("a\nb\tc\x7f"), "a b c ");
    EXPECT_EQ(singleLine("שלום 🎵"), "שלום 🎵");
    std::string notes;
    for (int index = 0; index < 100'000; ++index)
        notes += "🎵";
    const auto line = singleLine(notes);
    EXPECT_EQ(line.size(), MarqueeText::longestText * 4 + std::string("…").size());
    EXPECT_TRUE(line.ends_with("🎵…"));
}

class AudioVisualizerTest : public testing::Test {
protected:
    const std::vector<double>& heights() { return visualizer.barHeights.get(); }
    SimulatedRunLoop runLoop;
    AudioVisualizer visualizer{runLoop, true};
};

TEST_F(AudioVisualizerTest, FromEmptyHeightsTheFirstUpdateStartsAtTheLowest) {
    const auto& measures = visualizer.measures;
    visualizer.setPlaying(true);
    ASSERT_TRUE(heights().empty());
    visualizer.updateBars();
    ASSERT_EQ(heights().size(), 5u);
    const double highest =
        measures.lowest + (measures.highest - measures.lowest) * AudioVisualizer::smoothing;
    for (const double height : heights()) {
        EXPECT_GE(height, measures.lowest);
        EXPECT_LE(height, highest);
    }
}

TEST_F(AudioVisualizerTest, ThirtyTimesASecondTheBarsMoveWithinTheirBounds) {
    int changes = -1; // the first is the present value
    visualizer.appear(true);
    const auto subscription = visualizer.barHeights.observe([&](const auto& bars) {
        ++changes;
        for (const double height : bars) {
            EXPECT_GE(height, 2);
            EXPECT_LE(height, 16);
        }
    });
    runLoop.advance(1.001);
    EXPECT_EQ(changes, 30);
}

TEST_F(AudioVisualizerTest, EveryTickClosesAThirdOfTheWayToANewHeight) {
    visualizer.appear(true);
    EXPECT_EQ(heights(), std::vector<double>(5, 2)) << "from the lowest";
    double highest = 0;
    auto before = heights();
    for (int tick = 0; tick < 300; ++tick) {
        visualizer.updateBars();
        for (std::size_t bar = 0; bar < before.size(); ++bar) {
            const double target = before[bar] + (heights()[bar] - before[bar]) / 0.35;
            EXPECT_GE(target, 2 - 1e-9);
            EXPECT_LE(target, 16 + 1e-9);
            highest = std::max(highest, target);
        }
        before = heights();
    }
    EXPECT_GT(highest, 15) << "the whole range is used";
}

TEST_F(AudioVisualizerTest, IsAsWideAsItsBarsAndTheGapsBetweenThem) {
    EXPECT_EQ(AudioVisualizer::width(AudioVisualizer::regular), 10 * 3 + 9 * 2.5);
    EXPECT_EQ(AudioVisualizer::width(AudioVisualizer::compact), 5 * 2.5 + 4 * 2);
    EXPECT_EQ(AudioVisualizer::regular.lowest, 3);
    EXPECT_EQ(AudioVisualizer::regular.highest, 32);
}

TEST_F(AudioVisualizerTest, BeforeItAppearsNothingMoves) {
    visualizer.updateBars();
    EXPECT_TRUE(heights().empty());
}

TEST_F(AudioVisualizerTest, ToldAgainThatItPlaysItKeepsItsBeat) {
    visualizer.appear(true);
    EXPECT_TRUE(visualizer.isAnimating());
    runLoop.advance(0.02);
    visualizer.setPlaying(true);
    int changes = -1;
    const auto subscription = visualizer.barHeights.observe([&](const auto&) { ++changes; });
    runLoop.advance(0.02);
    EXPECT_EQ(changes, 1);
    visualizer.setPlaying(false);
    EXPECT_FALSE(visualizer.isAnimating());
    EXPECT_EQ(AudioVisualizer::stopDuration, 0.3);
}

TEST_F(AudioVisualizerTest, PausedOrHiddenItHasNoTimerAndItsBarsLie) {
    visualizer.appear(true);
    runLoop.advance(1);
    visualizer.setPlaying(false);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_EQ(heights(), std::vector<double>(5, 2));
    visualizer.setPlaying(true);
    EXPECT_EQ(runLoop.timerCount(), 1u);
    visualizer.disappear();
    EXPECT_EQ(runLoop.timerCount(), 0u);
    visualizer.appear(false);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    visualizer.updateBars();
    EXPECT_EQ(heights(), std::vector<double>(5, 2));
}

TEST_F(AudioVisualizerTest, BarsAreColouredFromTheTintToHalfOfIt) {
    const auto gradient = AudioVisualizer::barGradient(colors::blue);
    EXPECT_EQ(gradient[0], colors::blue.withAlpha(0.9));
    EXPECT_EQ(gradient[1], colors::blue.withAlpha(0.5));
    EXPECT_EQ(AudioVisualizer::width(AudioVisualizer::regular), 52.5);
}

class AudioOutputPickerTest : public testing::Test {
protected:
    AudioOutputPickerTest() {
        platform.audioHardwarePort.list = {{7, "Headphones", 1, 0.5F},
                                           {3, "Microphone", 0, {}},
                                           {9, std::nullopt, 1, 0.5F},
                                           {4, "Nobody knows", std::nullopt, {}},
                                           {1, "Speakers", 2, 0.5F}};
        platform.audioHardwarePort.defaultOutput = 1;
    }
    SimulatedPlatform platform;
    AudioOutputPicker picker{platform};
};

TEST_F(AudioOutputPickerTest, DevicesWithoutOutputStreamsOrWithoutANameAreLeftOut) {
    picker.refreshDevices();
    EXPECT_EQ(picker.devices, (std::vector<AudioOutputDevice>{{7, "Headphones"}, {1, "Speakers"}}));
    EXPECT_EQ(picker.currentDeviceID, 1u);
    const auto menu = picker.menu();
    ASSERT_EQ(menu.size(), 2u);
    EXPECT_FALSE(menu[0].isChecked);
    EXPECT_TRUE(menu[1].isChecked);
    EXPECT_EQ(picker.label(), (StyledSymbol{"airplayaudio", 14, notchSecondary}));
}

TEST_F(AudioOutputPickerTest, WithoutADefaultDeviceNoneIsChecked) {
    picker.devices = {{1, "Speakers"}};
    EXPECT_FALSE(picker.menu()[0].isChecked) << "before it has looked";
    platform.audioHardwarePort.defaultOutput.reset();
    picker.refreshDevices();
    for (const auto& entry : picker.menu())
        EXPECT_FALSE(entry.isChecked) << entry.title;
}

TEST_F(AudioOutputPickerTest, AnUnreadableListIsEmpty) {
    platform.audioHardwarePort.listReadable = false;
    picker.refreshDevices();
    EXPECT_TRUE(picker.menu().empty());
}

TEST_F(AudioOutputPickerTest, ChoosingWritesTheDefaultDevice) {
    picker.refreshDevices();
    picker.menu()[0].perform();
    EXPECT_EQ(platform.audioHardwarePort.defaultOutput, 7u);
    EXPECT_EQ(picker.currentDeviceID, 7u);
    EXPECT_TRUE(picker.menu()[0].isChecked);
}

class MediaViewsTest : public ViewFixture {
protected:
    MediaInfo song() {
        MediaInfo info;
        info.title = "Song";
        info.artist = "Singer";
        info.album = "Record";
        info.isPlaying = true;
        info.duration = 200;
        info.elapsed = 50;
        info.appName = "Spotify";
        info.appBundleIdentifier = "com.spotify.client";
        return info;
    }
    MediaManager& manager() { return app.mediaManager; }
    NowPlayingView view() { return manager().expandedView(); }
    MediaPanelView panel() { return MediaPanelView(app.environment()); }
};

TEST_F(MediaViewsTest, WithDurationZeroTheFillHasNoWidthAndThePositionStillCounts) {
    auto info = song();
    info.duration = 0;
    info.elapsed = 65;
    manager().currentMedia = info;
    EXPECT_EQ(view().progressBar(app.themeManager).fillWidth(300), 0);
    EXPECT_EQ(view().elapsed().text, "1:05");
    EXPECT_EQ(view().duration().text, "0:00");
    EXPECT_EQ(panel().slider().value, 0);
}

TEST(MediaProgress, IsTheShareOfTheDurationAndNeverMoreThanAll) {
    MediaInfo media;
    EXPECT_EQ(progress(media), 0) << "without a duration";
    media.duration = 0.5;
    media.elapsed = 0.25;
    EXPECT_EQ(progress(media), 0.5);
    media.elapsed = 7;
    EXPECT_EQ(progress(media), 1);
    media.elapsed = -1;
    EXPECT_EQ(progress(media), 0);
}

TEST(MediaProgress, TheButtonSaysWhatItDoes) {
    MediaInfo media;
    EXPECT_EQ(playName(media), "Play");
    media.isPlaying = true;
    EXPECT_EQ(playName(media), "Pause");
}

TEST_F(MediaViewsTest, TheFillIsTheShareOfTheDuration) {
    manager().currentMedia = song();
    EXPECT_EQ(view().progressBar(app.themeManager).fillWidth(300), 75);
}

TEST_F(MediaViewsTest, ASpotifySourceShowsTheHeartDimmedDisabledAndWithItsReason) {
    manager().currentMedia = song();
    const auto heart = view().loveButton();
    EXPECT_EQ(heart.opacity, 0.3);
    EXPECT_FALSE(heart.isEnabled);
    EXPECT_EQ(heart.help, "Not supported for this app");
    EXPECT_EQ(heart.symbol.name, "heart");
}

TEST_F(MediaViewsTest, AMusicSourceLoves) {
    auto info = song();
    info.appBundleIdentifier = "com.apple.Music";
    manager().currentMedia = info;
    manager().isLoved = true;
    EXPECT_EQ(view().loveButton(),
              (NowPlayingView::LoveButton{{"heart.fill", 14, colors::pink}, 1, "Love", true}));
}

TEST_F(MediaViewsTest, WithVolumeZeroTheLeftSymbolIsStruckOut) {
    const VolumeRow row(app.hudManager, platform);
    app.hudManager.currentVolume = 0;
    EXPECT_EQ(row.quietSymbol().name, "speaker.slash.fill");
    app.hudManager.currentVolume = 0.01F;
    EXPECT_EQ(row.quietSymbol().name, "speaker.fill");
}

TEST_F(MediaViewsTest, DraggingTheVolumeSetsTheSystems) {
    auto& audio = platform.audioHardwarePort;
    audio.list = {{1, "Speakers", 1, 0.5F}};
    audio.defaultOutput = 1;
    const VolumeRow row(app.hudManager, platform);
    row.setVolume(0.25);
    EXPECT_EQ(audio.volumeWrites, (std::vector<std::pair<AudioDeviceID, float>>{{1, 0.25F}}));
}

TEST_F(MediaViewsTest, TheAccentComesFromTheCoverInMulticolorAlone) {
    auto info = song();
    info.artwork = Image(1, 1, {255, 0, 0, 255});
    manager().currentMedia = info;
    EXPECT_EQ(panel().accentColor(), app.themeManager.accentColor());
    defaults().set("themeMode", std::string("multicolor"));
    EXPECT_EQ(panel().accentColor(), (Color{1, 0, 0, 1}));
    EXPECT_EQ(panel().playButton().color, (Color{1, 0, 0, 1}));
    info.artwork.reset();
    manager().currentMedia = info;
    EXPECT_EQ(view().accentColor(app.themeManager), notchAccent);
    EXPECT_EQ(panel().artwork().background, notchSurface);
}

TEST_F(MediaViewsTest, WithoutATitleThePlaceholdersStand) {
    EXPECT_EQ(panel().placeholder()->title.text, "No media playing");
    EXPECT_FALSE(view().showsMedia());
    EXPECT_EQ(view().noMediaView().title.text, "No Media Playing");
    EXPECT_EQ(view().noMediaView().symbol.size, 28);
    EXPECT_FALSE(manager().collapsedView().showsContent());
}

TEST_F(MediaViewsTest, TheControlsShowTitleAndArtistOnOneLine) {
    manager().currentMedia = song();
    auto controls = manager().collapsedView();
    EXPECT_TRUE(controls.showsContent());
    EXPECT_EQ(controls.title().text.text, "Song — Singer");
    EXPECT_EQ(controls.playButton(), (StyledSymbol{"pause.fill", 11, colors::white}));
    controls.playPause();
    EXPECT_EQ(controls.playButton().name, "play.fill");
}

TEST_F(MediaViewsTest, TheMenuOpensTheSourceWhenItHasAName) {
    manager().currentMedia = song();
    platform.workspacePort.applications.insert("com.spotify.client");
    const auto menu = mediaContextMenu(manager());
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].title, "Open in Spotify");
    menu[0].perform();
    EXPECT_EQ(platform.workspacePort.launched, std::vector<std::string>{"com.spotify.client"});
    auto info = song();
    info.appName.clear();
    manager().currentMedia = info;
    EXPECT_TRUE(mediaContextMenu(manager()).empty());
}

TEST_F(MediaViewsTest, ATrackStandsInItsSizesBesideItsCover) {
    manager().currentMedia = song();
    EXPECT_EQ(view().appName(), (StyledText{"Spotify", {9, FontWeight::medium, notchTertiary}}));
    EXPECT_EQ(view().title(), (StyledText{"Song", {13, FontWeight::bold, notchAccent}}));
    EXPECT_EQ(view().artist(), (StyledText{"Singer", {11, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view().elapsed(), (StyledText{"0:50", {10, FontWeight::regular, notchTertiary}}));
    EXPECT_EQ(view().duration().text, "3:20");
    const auto cover = view().artworkView();
    EXPECT_EQ(cover.side, 80);
    EXPECT_EQ(cover.cornerRadius, 10);
    EXPECT_EQ(cover.symbol, (StyledSymbol{"music.note", 28, notchSecondary}));
    EXPECT_EQ(cover.background, notchSurface);
}

TEST_F(MediaViewsTest, BarsDanceOnTheCoverWhileItPlays) {
    auto info = song();
    manager().currentMedia = info;
    EXPECT_TRUE(view().showsVisualizer());
    info.isPlaying = false;
    manager().currentMedia = info;
    EXPECT_FALSE(view().showsVisualizer());
}

TEST_F(MediaViewsTest, TheTransportButtonsHaveTheirSizes) {
    manager().currentMedia = song();
    EXPECT_EQ(view().previousButton(), (StyledSymbol{"backward.fill", 16, colors::white}));
    EXPECT_EQ(view().playButton(), (StyledSymbol{"pause.fill", 22, colors::white}));
    EXPECT_EQ(view().nextButton(), (StyledSymbol{"forward.fill", 16, colors::white}));
    EXPECT_EQ(panel().previousButton(), (StyledSymbol{"backward.fill", 16, colors::white}));
    EXPECT_EQ(panel().playButton().name, "pause.fill");
    EXPECT_EQ(panel().playButton().size, 22);
    EXPECT_EQ(panel().nextButton(), (StyledSymbol{"forward.fill", 16, colors::white}));
}

TEST_F(MediaViewsTest, ThePanelShowsTheTrackInItsSizes) {
    manager().currentMedia = song();
    EXPECT_EQ(panel().artwork().side, 60);
    EXPECT_EQ(panel().artwork().cornerRadius, 8);
    EXPECT_EQ(panel().title(), (StyledText{"Song", {14, FontWeight::semibold, colors::white}}));
    EXPECT_EQ(panel().artist(), (StyledText{"Singer", {12, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(panel().album(), (StyledText{"Record", {11, FontWeight::regular, notchTertiary}}));
    EXPECT_EQ(panel().elapsed(), (StyledText{"0:50", {10, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(panel().duration().text, "3:20");
    EXPECT_EQ(panel().slider().value, 0.25);
    EXPECT_EQ(panel().slider().height, 4);
    EXPECT_FALSE(panel().slider().showThumb) << "it cannot be dragged";
}

TEST_F(MediaViewsTest, TheControlsHaveASmallCoverAndATitleOfBoundedWidth) {
    manager().currentMedia = song();
    const auto cover = manager().collapsedView().miniArtwork();
    EXPECT_EQ(cover.side, 24);
    EXPECT_EQ(cover.cornerRadius, 4);
    EXPECT_EQ(cover.symbol, (StyledSymbol{"music.note", 10, notchSecondary}));
    EXPECT_EQ(manager().collapsedView().title().text.style.size, 11);
    EXPECT_EQ(MediaControlsView::titleWidth, 120);
    EXPECT_EQ(manager().collapsedView().playButton().size, 11);
    EXPECT_EQ(MediaControlsView::horizontalPadding, 8);
    EXPECT_EQ(MediaControlsView::verticalPadding, 6);
}

TEST_F(MediaViewsTest, TheVolumesKnobIsThereOnlyWithADevice) {
    const VolumeRow row(app.hudManager, platform);
    platform.audioHardwarePort.defaultOutput.reset();
    EXPECT_FALSE(row.hasDevice());
    EXPECT_FALSE(row.slider().showThumb);
    platform.audioHardwarePort.list = {{1, "Speakers", 1, 0.5F}};
    platform.audioHardwarePort.defaultOutput = 1;
    app.hudManager.currentVolume = 0.75F;
    EXPECT_TRUE(row.hasDevice());
    EXPECT_TRUE(row.slider().showThumb);
    EXPECT_EQ(row.slider().value, 0.75);
    EXPECT_EQ(row.quietSymbol().size, 10);
    EXPECT_EQ(row.loudSymbol(), (StyledSymbol{"speaker.wave.3.fill", 10, notchTertiary}));
    EXPECT_EQ(VolumeRow::symbolWidth, 14);
}

TEST_F(MediaViewsTest, TheLargeViewsMeasuresAreThose) {
    using View = NowPlayingView;
    EXPECT_EQ(View::horizontalPadding, 16);
    EXPECT_EQ(View::verticalPadding, 12);
    EXPECT_EQ(View::spacing, 14);
    EXPECT_EQ(View::progressSpacing, 4);
    EXPECT_EQ(View::ProgressBar::height, 4);
    EXPECT_EQ(View::ProgressBar::changeDuration, 0.5);
    EXPECT_EQ(View::shadowColor, Color::white(0, 0.3));
    EXPECT_EQ(MediaPanelView::rowSpacing, 12);
    EXPECT_EQ(MediaPanelView::textSpacing, 4);
    EXPECT_EQ(MediaPanelView::sliderTopPadding, 4);
}

} // namespace
} // namespace orvelle
