#include "Platform/Simulated/DemoPortrait.h"
#include "views/ViewFixture.h"

namespace orvelle {

class MirrorPanelTest : public ViewFixture {
protected:
    void deliver(Image frame) {
        platform.cameraPort.configuration.onFrame(std::move(frame));
        platform.runLoopPort.runPosted();
        turn();
    }
    /// Red on the left, blue on the right.
    static Image halves() {
        std::vector<std::uint8_t> pixels;
        for (int row = 0; row < 100; ++row)
            for (int column = 0; column < 400; ++column)
                pixels.insert(pixels.end(),
                              {static_cast<std::uint8_t>(column < 200 ? 255 : 0), 0,
                               static_cast<std::uint8_t>(column < 200 ? 0 : 255), 255});
        return Image(400, 100, std::move(pixels));
    }
    QColor pixel(const QPointF& at) { return window.grabWindow().pixelColor(at.toPoint()); }
};

TEST_F(MirrorPanelTest, runsTheCameraWhileItIsShown) {
    show(ActivePanel::battery);
    EXPECT_FALSE(mirror.isSessionRunning);
    show(ActivePanel::mirror);
    EXPECT_TRUE(mirror.isSessionRunning);
    notchState.activePanel = ActivePanel::battery;
    turn();
    EXPECT_FALSE(mirror.isSessionRunning) << "as soon as the panel begins to leave";
    show(ActivePanel::mirror);
    EXPECT_TRUE(mirror.isSessionRunning);
    show(NotchExpandedState::collapsed);
    EXPECT_FALSE(mirror.isSessionRunning);
}

TEST_F(MirrorPanelTest, runsNoCameraWhileItsWindowIsAway) {
    show(ActivePanel::mirror);
    window.hide();
    EXPECT_FALSE(mirror.isSessionRunning);
    turn();
    EXPECT_FALSE(mirror.isSessionRunning);
    window.show();
    EXPECT_TRUE(eventually([&] { return mirror.isSessionRunning; }));
}

TEST_F(MirrorPanelTest, runsNoCameraInAWindowThatIsNotShownYet) {
    window.hide();
    show(ActivePanel::mirror);
    EXPECT_FALSE(mirror.isSessionRunning);
    window.show();
    EXPECT_TRUE(eventually([&] { return mirror.isSessionRunning; }));
}

TEST_F(MirrorPanelTest, permissionThatComesWhileTheWindowIsAwayStartsNothing) {
    platform.cameraPort.status = CameraAuthorizationStatus::notDetermined;
    show(ActivePanel::mirror);
    window.hide();
    platform.runLoopPort.runPosted();
    platform.runLoopPort.advance(1);
    EXPECT_FALSE(mirror.isSessionRunning);
}

TEST_F(MirrorPanelTest, saysThatTheCameraStarts) {
    show(ActivePanel::mirror);
    EXPECT_EQ(textOf("startingText"), "Starting camera...");
    EXPECT_TRUE(item("startingText")->isVisible());
    EXPECT_FALSE(item("frame")->isVisible());
    picture("mirror-starting");
}

TEST_F(MirrorPanelTest, showsTheFrameFlippedUntilTheToggleIsClicked) {
    show(ActivePanel::mirror);
    deliver(halves());
    EXPECT_FALSE(item("startingText")->isVisible());
    const auto frame = frameOf("frame");
    const QPointF left(frame.left() + 20, frame.center().y());
    EXPECT_EQ(pixel(left), QColor(0, 0, 255));
    click("mirrorToggle");
    EXPECT_FALSE(mirror.isMirrored);
    EXPECT_EQ(pixel(left), QColor(255, 0, 0));
}

TEST_F(MirrorPanelTest, thePictureFillsThePanelWithRoundCorners) {
    show(ActivePanel::mirror);
    deliver(halves());
    const auto frame = frameOf("frame");
    EXPECT_EQ(frame.width(), 542);
    const auto corner = pixel(frame.topLeft() + QPointF(1, 1));
    EXPECT_LT(corner.blue(), 60) << "black shows through";
    EXPECT_EQ(pixel(frame.topLeft() + QPointF(12, 12)), QColor(0, 0, 255));
    const auto toggle = frameOf("mirrorToggle");
    EXPECT_NEAR(frame.right() - toggle.right(), 8, 0.01);
    EXPECT_NEAR(toggle.top() - frame.top(), 8, 0.01);
}

TEST_F(MirrorPanelTest, withoutPermissionItLeadsToTheSettings) {
    platform.cameraPort.status = CameraAuthorizationStatus::denied;
    show(ActivePanel::mirror);
    EXPECT_EQ(textOf("permissionTitle"), "Camera Access Required");
    EXPECT_EQ(textOf("permissionText"), "Grant camera access to use the Mirror widget.");
    EXPECT_EQ(item("frame"), nullptr);
    EXPECT_LE(frameOf("openSystemSettings").bottom(), 220);
    EXPECT_GE(frameOf("permissionTitle").top(), 61);
    picture("mirror-permission");
    click("openSystemSettings");
    EXPECT_EQ(platform.workspacePort.opened,
              std::vector<std::string>{
                  "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera"});
}

TEST_F(MirrorPanelTest, theHoverBarHasItsSymbol) {
    mirror.isEnabled = true;
    show(NotchExpandedState::hovering);
    EXPECT_NE(item("mirrorSymbol"), nullptr);
    click("widget.mirror");
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::mirror);
}

TEST_F(MirrorPanelTest, picturesOfAPortrait) {
    show(ActivePanel::mirror);
    deliver(demoPortrait(480, 360));
    EXPECT_TRUE(item("frame")->isVisible());
    picture("mirror");
}

} // namespace orvelle
