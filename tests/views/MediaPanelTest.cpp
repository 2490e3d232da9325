#include "Views/Qt/AudioVisualizerItem.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/MenuWindow.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QSignalSpy>

namespace orvelle {

class MediaViewTest : public ViewFixture {
protected:
    MediaViewTest() {
        platform.audioHardwarePort.list = {{1, "Speakers", 1, 0.5F}, {2, "Headphones", 1, 0.5F}};
        platform.audioHardwarePort.defaultOutput = 1;
    }
    void play(const std::string& title) {
        MediaInfo info;
        info.title = title;
        info.artist = "Artist";
        info.album = "Album";
        info.isPlaying = true;
        info.duration = 200;
        info.elapsed = 50;
        info.appName = "Music";
        info.appBundleIdentifier = "com.apple.Music";
        media.currentMedia = info;
        turn();
    }
    /// A view that no panel places, alone in a corner of the window.
    std::unique_ptr<QQuickItem> load(const char* name, QSizeF size) {
        QQmlComponent component(qmlEngine(root),
                                QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(name)));
        std::unique_ptr<QQuickItem> loaded(qobject_cast<QQuickItem*>(component.create()));
        EXPECT_NE(loaded, nullptr) << component.errorString().toStdString();
        loaded->setParentItem(root);
        if (!size.isEmpty())
            loaded->setSize(size);
        turn();
        return loaded;
    }
    static MenuWindow* openMenu() {
        for (auto* each : QGuiApplication::topLevelWindows())
            if (auto* menu = qobject_cast<MenuWindow*>(each); menu && menu->isVisible())
                return menu;
        return nullptr;
    }
    bool isRunning(const char* marquee) const {
        return item(QLatin1String(marquee))->property("running").toBool();
    }
    double offset(const char* marquee) const {
        return item(QLatin1String(marquee))->property("offset").toDouble();
    }
};

TEST_F(MediaViewTest, withoutATrackThePanelShowsItsPlaceholder) {
    show(ActivePanel::media);
    EXPECT_EQ(textOf("placeholderTitle"), "No media playing");
    EXPECT_EQ(item("playButton"), nullptr);
    play("Song");
    EXPECT_EQ(textOf("mediaTitle"), "Song");
    EXPECT_EQ(item("placeholderTitle"), nullptr);
}

TEST_F(MediaViewTest, thePanelShowsTrackAndPosition) {
    play("Song");
    show(ActivePanel::media);
    EXPECT_EQ(frameOf("artwork").size(), QSizeF(60, 60));
    EXPECT_EQ(frameOf("mediaTitle").left() - frameOf("artwork").right(), 12);
    EXPECT_EQ(textOf("mediaElapsed"), "0:50");
    EXPECT_EQ(textOf("mediaDuration"), "3:20");
    EXPECT_NEAR(frameOf("fill").width(), 542 / 4.0, 1);
    EXPECT_LE(frameOf("playButton").bottom(), 220);
    EXPECT_LE(frameOf("mediaElapsed").bottom(), frameOf("playButton").top());
}

TEST_F(MediaViewTest, theButtonsCommandThePlayer) {
    play("Song");
    media.currentMedia.update([](MediaInfo& info) { info.appBundleIdentifier.reset(); });
    show(ActivePanel::media);
    for (const char* button : {"playButton", "nextButton", "previousButton"})
        click(QLatin1String(button));
    EXPECT_EQ(platform.nowPlayingPort.commands, (std::vector<std::uint32_t>{2, 4, 5}));
}

TEST_F(MediaViewTest, theOutputMenuChecksTheCurrentDeviceAndChoosesAnother) {
    play("Song");
    show(ActivePanel::media);
    click("outputPicker");
    auto* menu = openMenu();
    ASSERT_NE(menu, nullptr);
    picture("output-menu", *menu);
    const auto entries = menu->property("entries").value<MenuValue>();
    EXPECT_EQ(titlesOf(entries), QStringList({"Speakers", "Headphones"}));
    EXPECT_TRUE(entries.lines().front().value<MenuLineValue>().isChecked);
    entries.perform(1);
    menu->dismiss();
    EXPECT_EQ(platform.audioHardwarePort.defaultOutput, 2u);
}

TEST_F(MediaViewTest, aPressOnTheVolumeSetsIt) {
    play("Song");
    show(ActivePanel::media);
    click("volumeSlider");
    ASSERT_FALSE(platform.audioHardwarePort.volumeWrites.empty());
    EXPECT_NEAR(platform.audioHardwarePort.volumeWrites.back().second, 0.5, 0.02);
}

TEST_F(MediaViewTest, thePositionHasNoKnobForItCannotBeDragged) {
    play("Song");
    show(ActivePanel::media);
    EXPECT_EQ(item(item("mediaPosition"), "thumb"), nullptr);
    EXPECT_NE(item(item("volumeSlider"), "thumb"), nullptr);
}

TEST_F(MediaViewTest, withoutADeviceTheVolumeIsDimAndCannotBeMoved) {
    platform.audioHardwarePort.list.clear();
    platform.audioHardwarePort.defaultOutput.reset();
    play("Song");
    show(ActivePanel::media);
    EXPECT_FALSE(item("volumeSlider")->isEnabled());
    EXPECT_LT(item("volumeSlider")->opacity(), 0.5);
    EXPECT_EQ(item(item("volumeSlider"), "thumb"), nullptr);
}

TEST_F(MediaViewTest, aRunningTitleFadesWhereItRunsOutOfView) {
    play("A title that is a good deal wider than its room");
    const auto controls = load("MediaControlsView", {});
    const auto* leading = item("leadingFade");
    const auto* trailing = item("trailingFade");
    ASSERT_TRUE(leading && trailing);
    EXPECT_FALSE(leading->isVisible()) << "nothing has left there yet";
    EXPECT_TRUE(trailing->isVisible());
    ASSERT_TRUE(eventually([&] { return offset("controlsTitle") < -2; }));
    EXPECT_TRUE(leading->isVisible());
    play("Song");
    EXPECT_FALSE(leading->isVisible());
    EXPECT_FALSE(trailing->isVisible()) << "all of it can be seen";
}

TEST_F(MediaViewTest, aHugeTitleStallsNothing) {
    show(ActivePanel::media);
    turn();
    play(std::string(100'000, 'W'));
    window.grabWindow();
    EXPECT_LT(textOf("mediaTitle").size(), 500);
    EXPECT_LE(frameOf("mediaTitle").right(), 554);
    for (const char* title : {"שלום עולם", "🎵🎶 夕方の歌", "\xff\xfe broken \x80"}) {
        play(title);
        window.grabWindow();
        EXPECT_LE(frameOf("mediaTitle").right(), 554) << title;
    }
}

TEST_F(MediaViewTest, aTitleThatFitsStandsStillAndALongOneRuns) {
    play("Song");
    const auto controls = load("MediaControlsView", {});
    EXPECT_FALSE(eventually([&] { return isRunning("controlsTitle"); }, 300));
    EXPECT_EQ(offset("controlsTitle"), 0);
    QElapsedTimer rest;
    rest.start();
    play("A title that is a good deal wider than its room");
    EXPECT_EQ(frameOf("controlsTitle").width(), 120);
    EXPECT_TRUE(eventually([&] { return isRunning("controlsTitle"); }));
    EXPECT_GE(rest.elapsed(), 140) << "it rests for 150 milliseconds before it runs";
    EXPECT_TRUE(eventually([&] { return offset("controlsTitle") < -2; }));
}

TEST_F(MediaViewTest, afterATextChangeARunningTitleStartsAgainFromTheBeginning) {
    play("A title that is a good deal wider than its room");
    const auto controls = load("MediaControlsView", {});
    ASSERT_TRUE(eventually([&] { return offset("controlsTitle") < -2; }));
    play("Another title that is a good deal wider than its room");
    EXPECT_EQ(offset("controlsTitle"), 0);
    EXPECT_FALSE(isRunning("controlsTitle"));
    EXPECT_TRUE(eventually([&] { return isRunning("controlsTitle"); }));
    controls->setVisible(false);
    EXPECT_FALSE(isRunning("controlsTitle")) << "nobody sees it run";
}

TEST_F(MediaViewTest, barsDanceOnlyWhileSomethingPlaysAndIsSeen) {
    play("Song");
    show(NotchExpandedState::hovering);
    const auto* bars = qobject_cast<AudioVisualizerItem*>(item("visualizer"));
    ASSERT_NE(bars, nullptr);
    EXPECT_TRUE(bars->isAnimating());
    EXPECT_EQ(bars->size(), QSizeF(20, 16));
    const auto timers = platform.runLoopPort.timerCount();
    show(NotchExpandedState::collapsed);
    EXPECT_EQ(item("visualizer"), nullptr);
    EXPECT_EQ(platform.runLoopPort.timerCount(), timers - 1);
}

TEST_F(MediaViewTest, aHiddenVisualizerHasNoTimer) {
    play("Song");
    const auto view = load("NowPlayingView", {542, 140});
    const auto* bars = qobject_cast<AudioVisualizerItem*>(item("visualizer"));
    ASSERT_NE(bars, nullptr);
    EXPECT_TRUE(bars->isAnimating());
    view->setVisible(false);
    EXPECT_FALSE(bars->isAnimating());
    view->setVisible(true);
    EXPECT_TRUE(bars->isAnimating());
}

TEST_F(MediaViewTest, theNowPlayingViewShowsEverything) {
    play("Song");
    show(NotchExpandedState::collapsed);
    const auto view = load("NowPlayingView", {542, 135});
    EXPECT_EQ(view->findChild<QQuickItem*>("loveButton")->isEnabled(), true);
    EXPECT_EQ(textOf("appName"), "Music");
    EXPECT_EQ(textOf("elapsed"), "0:50");
    picture("now-playing");
    media.currentMedia = MediaInfo();
    turn();
    EXPECT_EQ(textOf("placeholderTitle"), "No Media Playing");
}

TEST_F(MediaViewTest, theHeartsHelpShowsUnderThePointerAlsoWhileItIsDisabled) {
    play("Song");
    show(NotchExpandedState::collapsed);
    const auto hover = [&](QPointF at) {
        QMouseEvent event(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    for (const auto& [application, text] :
         {std::pair("com.spotify.client", "Not supported for this app"),
          std::pair("com.apple.Music", "Love")}) {
        media.currentMedia.update([&](MediaInfo& info) { info.appBundleIdentifier = application; });
        const auto view = load("NowPlayingView", {542, 135});
        window.grabWindow(); // a frame, which lays the rows out
        const auto* heart = item(view.get(), "loveButton");
        const auto* help = item(view.get(), "help");
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(heart->property("enabled").toBool(),
                  std::string(application) == "com.apple.Music");
        hover(heart->mapToScene(heart->boundingRect().center()));
        EXPECT_TRUE(eventually([&] { return help->isVisible(); })) << application;
        EXPECT_EQ(help->childItems().constFirst()->property("text").toString(), text);
        picture(std::string("heart-help-") + application);
        hover(QPointF(400, 120));
        EXPECT_TRUE(eventually([&] { return !help->isVisible(); }));
    }
}

TEST_F(MediaViewTest, theCoverCastsAShadow) {
    play("Song");
    show(NotchExpandedState::collapsed);
    window.setColor(Qt::white);
    const auto view = load("NowPlayingView", {542, 135});
    const auto* cover = item(view.get(), "artwork");
    const auto frame = cover->mapRectToScene(cover->boundingRect());
    const auto picture = window.grabWindow();
    const auto grayBelow = [&](double distance) {
        const auto at = QPointF(frame.center().x(), frame.bottom() + distance);
        return picture.pixelColor((at * picture.devicePixelRatio()).toPoint()).lightnessF();
    };
    EXPECT_NEAR(grayBelow(1), 1 - 0.3 / 2, 0.05) << "half the shadow's strength at the edge";
    EXPECT_LT(grayBelow(2), grayBelow(5));
    EXPECT_EQ(grayBelow(12), 1);
}

TEST_F(MediaViewTest, theHoverBarShowsTheCover) {
    play("Song");
    media.currentMedia.update([](MediaInfo& info) {
        info.artwork = Image(1, 1, {200, 30, 60, 255});
    });
    show(NotchExpandedState::hovering);
    EXPECT_TRUE(item("coverImage")->isVisible());
    const auto at = frameOf("coverImage").center().toPoint();
    EXPECT_EQ(window.grabWindow().pixelColor(at), QColor(200, 30, 60));
}

TEST_F(MediaViewTest, aLoveButtonThatIsDisabledTakesNoKeyboardAndNoOrder) {
    play("Song");
    const auto view = load("NowPlayingView", {566, 220});
    auto* love = item(view.get(), "loveButton");
    ASSERT_TRUE(love->isEnabled());
    window.requestActivate();
    KeyboardWalk keyboard(window);
    ASSERT_TRUE(keyboard.leadsTo(love));
    media.currentMedia.update([](MediaInfo& info) { info.appBundleIdentifier = "org.other"; });
    turn();
    ASSERT_FALSE(love->isEnabled());
    EXPECT_FALSE(love->hasActiveFocus()) << "it does not keep what it had";
    EXPECT_FALSE(keyboard.leadsTo(love));
    love->forceActiveFocus(Qt::TabFocusReason);
    const QSignalSpy clicks(love, SIGNAL(clicked(QQuickMouseEvent*)));
    keyboard.press(Qt::Key_Space);
    keyboard.press(Qt::Key_Return);
    QAccessible::queryAccessibleInterface(love)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 0);
}

} // namespace orvelle
