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

    /// More colours than this are a text or a symbol; bare ground has one.
    static constexpr int drawn = 8;

    /// How many different colours the item's part of the picture has.
    int colorCount(const QString& objectName) {
        settle();
        const QImage image = window.grabWindow().copy(frameOf(objectName).toAlignedRect());
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
    EXPECT_LT(colorCount("shape"), 40);
}

TEST_F(PictureTest, theHoverBarShowsItsWidgets) {
    WeatherData data;
    data.locationName = "New York";
    weather.weather = data;
    show(NotchExpandedState::hovering);
    picture("hovering");
    EXPECT_GT(colorCount("widget.battery"), drawn);
    EXPECT_GT(colorCount("widget.weather"), drawn);
    EXPECT_GT(colorCount("bottomRow"), drawn);
}

TEST_F(PictureTest, theHoverBarShowsWhatPlays) {
    MediaInfo info;
    info.title = "Midnight City";
    info.artist = "The Commuters";
    info.isPlaying = true;
    media.currentMedia = info;
    show(NotchExpandedState::hovering);
    picture("hovering-media");
    EXPECT_GT(colorCount("widget.media"), drawn);
}

TEST_F(PictureTest, everyPanelDraws) {
    for (const auto panel : allActivePanels) {
        show(panel);
        picture("panel-" + std::string(rawValue(panel)));
        EXPECT_GT(colorCount("panels"), drawn) << rawValue(panel);
    }
}

TEST_F(PictureTest, aMachineWithoutABatteryDraws) {
    battery.hasBattery = false;
    show(ActivePanel::battery);
    picture("panel-battery-none");
    EXPECT_GT(colorCount("panels"), drawn);
}

TEST_F(PictureTest, theSystemMonitorWithoutModulesDraws) {
    for (const char* key : {"sysMonCPU", "sysMonMemory", "sysMonNetwork", "sysMonTemperature"})
        platform.userDefaultsPort.set(key, false);
    show(ActivePanel::systemMonitor);
    picture("panel-systemMonitor-none");
    EXPECT_GT(colorCount("panels"), drawn);
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
    EXPECT_GT(colorCount("hud"), drawn);
}

} // namespace orvelle
