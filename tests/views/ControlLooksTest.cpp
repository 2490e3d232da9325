#include "views/ViewFixture.h"

#include <QCursor>
#include <QMouseEvent>

namespace orvelle {

/// What controls look like under the pointer, and how much of them takes a click.
class ControlLooksTest : public ViewFixture {
protected:
    ControlLooksTest() {
        WeatherData data;
        data.locationName = "Paris";
        weather.weather = data;
        weather.lastLocation = Coordinate{1, 1};
    }
    void hover(QPointF at) {
        QMouseEvent event(QEvent::MouseMove, at, window.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
        turn();
    }
    float ground(const QString& control) {
        const auto* found = ViewFixture::item(item(control), "pointerGround");
        return found ? found->property("color").value<QColor>().alphaF() : -1;
    }
    void press(const QString& control) {
        mouse(QEvent::MouseButtonPress, frameOf(control).center());
    }
    /// A click that misses the control's centre by this much.
    void clickBeside(const QString& control, QPointF by) {
        const auto at = frameOf(control).center() + by;
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    }
    void expectLooks(const QString& control) {
        window.grabWindow(); // a frame, which lays the rows out
        const auto name = control.toStdString();
        hover({2, 218});
        EXPECT_EQ(ground(control), 0) << name;
        hover(frameOf(control).center());
        const float hovered = ground(control);
        EXPECT_GT(hovered, 0) << name;
        EXPECT_EQ(window.cursor().shape(), Qt::PointingHandCursor) << name;
        press(control);
        EXPECT_GT(ground(control), hovered) << name;
        mouse(QEvent::MouseMove, {2, 218}); // let go elsewhere, it does nothing
        mouse(QEvent::MouseButtonRelease, {2, 218});
    }
};

TEST_F(ControlLooksTest, controlsLightUnderThePointerAndMoreWhilePressed) {
    weather.addSavedLocation({UUID::random(), "Oslo", 60, 10});
    show(ActivePanel::weather);
    for (const auto* control : {"tab.time", "refreshButton", "nextLocation"})
        expectLooks(QLatin1String(control));

    MediaInfo info;
    info.title = "Song";
    media.currentMedia = info;
    show(ActivePanel::media);
    for (const auto* control : {"playButton", "nextButton", "outputPicker"})
        expectLooks(QLatin1String(control));

    show(ActivePanel::pomodoro);
    expectLooks("resetButton");
}

TEST_F(ControlLooksTest, widgetsOfTheHoverBarLightUnderThePointer) {
    show(NotchExpandedState::hovering);
    expectLooks("widget.battery");
}

TEST_F(ControlLooksTest, aControlThatIsDisabledStaysDark) {
    show(ActivePanel::todo);
    hover(frameOf("addButton").center());
    EXPECT_FALSE(item("addButton")->isEnabled());
    EXPECT_EQ(ground("addButton"), 0);
}

TEST_F(ControlLooksTest, theSmallButtonsOfTheWeatherTakeClicksInTwentyFourPoints) {
    weather.addSavedLocation({UUID::random(), "Oslo", 60, 10});
    show(ActivePanel::weather);
    clickBeside("refreshButton", {-11, 11});
    EXPECT_EQ(platform.httpClientPort.requests.size(), 1u);
    clickBeside("nextLocation", {11, -11});
    EXPECT_EQ(weather.currentLocationIndex, 1u);
    clickBeside("previousLocation", {-11, -11});
    EXPECT_EQ(weather.currentLocationIndex, 0u);
}

class FocusTimerPanelTest : public ViewFixture {};

TEST_F(FocusTimerPanelTest, theButtonsStandSymmetricallyUnderTheRing) {
    show(ActivePanel::pomodoro);
    window.grabWindow();
    const double middle = frameOf("ring").center().x();
    EXPECT_EQ(frameOf("playButton").center().x(), middle);
    EXPECT_EQ(middle - frameOf("resetButton").center().x(),
              frameOf("skipButton").center().x() - middle);
    pomodoro.startTimer();
    turn();
    window.grabWindow();
    EXPECT_EQ(frameOf("playButton").center().x(), middle) << "another symbol, the same place";
}

} // namespace orvelle
