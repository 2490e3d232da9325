#include "views/ViewFixture.h"

#include <QImage>
#include <QSet>

namespace orvelle {

/// What one looks at after a change of the views. Each also fails on a view that draws nothing.
class PictureTest : public ViewFixture {
protected:
    PictureTest() {
        battery.batteryLevel = 87;
        battery.isPluggedIn = false;
        battery.timeRemaining = 200;
        SystemMetrics metrics;
        metrics.cpuUsage = 12.4;
        metrics.memoryUsage = 63.1;
        metrics.memoryUsed = 8'400'000'000;
        metrics.networkUpload = 128'000;
        metrics.networkDownload = 2'500'000;
        metrics.cpuTemperature = 61;
        systemMonitor.metrics = metrics;
        time.currentTime = platform.runLoopPort.now();
    }

    /// How many different colours the picture has.
    int colorCount() {
        settle();
        const QImage image = window.grabWindow();
        QSet<QRgb> colors;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        return static_cast<int>(colors.size());
    }
};

TEST_F(PictureTest, theCollapsedNotchIsPlain) {
    show(NotchExpandedState::collapsed);
    picture("collapsed");
    EXPECT_LT(colorCount(), 40);
}

TEST_F(PictureTest, theHoverBarShowsItsWidgets) {
    WeatherData data;
    data.locationName = "New York";
    weather.weather = data;
    show(NotchExpandedState::hovering);
    picture("hovering");
    EXPECT_GT(colorCount(), 40);
}

TEST_F(PictureTest, theHoverBarShowsWhatPlays) {
    MediaInfo info;
    info.title = "Midnight City";
    info.artist = "The Commuters";
    info.isPlaying = true;
    media.currentMedia = info;
    show(NotchExpandedState::hovering);
    picture("hovering-media");
    EXPECT_GT(colorCount(), 40);
}

TEST_F(PictureTest, everyPanelDraws) {
    for (const auto panel : allActivePanels) {
        show(panel);
        picture("panel-" + std::string(rawValue(panel)));
        EXPECT_GT(colorCount(), 40) << rawValue(panel);
    }
}

TEST_F(PictureTest, aMachineWithoutABatteryDraws) {
    battery.hasBattery = false;
    show(ActivePanel::battery);
    picture("panel-battery-none");
    EXPECT_GT(colorCount(), 40);
}

TEST_F(PictureTest, theSystemMonitorWithoutModulesDraws) {
    for (const char* key : {"sysMonCPU", "sysMonMemory", "sysMonNetwork", "sysMonTemperature"})
        platform.userDefaultsPort.set(key, false);
    show(ActivePanel::systemMonitor);
    picture("panel-systemMonitor-none");
    EXPECT_GT(colorCount(), 40);
}

TEST_F(PictureTest, theLevelDisplayDraws) {
    show(ActivePanel::time);
    notchState.hudType = HUDType::volume;
    notchState.hudValue = 0.4;
    notchState.isHUDVisible = true;
    turn();
    ASSERT_TRUE(eventually([&] { return item("hud") != nullptr; }));
    ASSERT_TRUE(eventually([&] { return item("hud")->parentItem()->opacity() == 1; }));
    picture("hud");
}

} // namespace orvelle
