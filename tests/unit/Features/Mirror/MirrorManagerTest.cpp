#include "Features/Mirror/MirrorManager.h"

#include "Extensions/ColorTheme.h"
#include "Features/Mirror/MirrorCollapsedView.h"
#include "Features/Mirror/MirrorExpandedView.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

using Status = CameraAuthorizationStatus;
using CameraStep = SimulatedCameraService::Step;
using Steps = std::vector<CameraStep>;

Image picture() {
    return Image(1, 1, {1, 2, 3, 255});
}

class MirrorManagerTest : public testing::Test {
protected:
    void runPosted() { platform.runLoopPort.runPosted(); }
    /// As the camera does, on whatever thread.
    void deliver(const Image& frame) { camera.configuration.onFrame(frame); }

    void expectRefused(Status status) {
        camera.status = status;
        manager.startSession();
        runPosted();
        EXPECT_FALSE(manager.hasPermission);
        EXPECT_FALSE(manager.isSessionRunning);
        EXPECT_FALSE(view.showsPreview());
    }

    SimulatedPlatform platform;
    SimulatedCameraService& camera = platform.cameraPort;
    MirrorManager manager{platform};
    MirrorExpandedView view{manager, platform};
};

TEST_F(MirrorManagerTest, StartSessionTwiceRunsOneSetupOnly) {
    manager.startSession();
    manager.startSession();
    runPosted();
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::started}));
    EXPECT_TRUE(manager.isSessionRunning);
}

TEST_F(MirrorManagerTest, StopSessionWhileNotRunningDoesNothing) {
    manager.stopSession();
    runPosted();
    EXPECT_EQ(camera.steps, Steps{});
    manager.startSession();
    manager.stopSession();
    manager.stopSession();
    runPosted();
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::started, CameraStep::stopped}));
}

TEST_F(MirrorManagerTest, AFrameThatArrivesAfterTheStopIsReplacedAtTheNextAppearing) {
    manager.startSession();
    runPosted();
    deliver(picture());
    manager.stopSession();
    runPosted(); // the frame was under way
    manager.startSession();
    runPosted();
    const auto next = picture();
    deliver(next);
    runPosted();
    EXPECT_EQ(manager.latestFrame.get(), next);
}

TEST_F(MirrorManagerTest, ARefusalShowsThePermissionView) {
    for (const auto status : {Status::denied, Status::restricted}) {
        expectRefused(status);
        EXPECT_EQ(camera.steps, Steps{});
    }
    EXPECT_EQ(camera.accessRequests, 0);
}

TEST_F(MirrorManagerTest, ARefusalAfterAGrantShowsThePermissionView) {
    for (const auto status : {Status::denied, Status::restricted}) {
        camera.status = Status::authorized;
        manager.startSession();
        manager.stopSession();
        runPosted();
        EXPECT_TRUE(manager.hasPermission);
        expectRefused(status);
    }
}

TEST_F(MirrorManagerTest, AccessGrantedByThePromptStartsTheSession) {
    camera.status = Status::notDetermined;
    manager.startSession();
    runPosted();
    EXPECT_FALSE(manager.hasPermission) << "the question is open";
    EXPECT_FALSE(view.showsPreview());
    platform.runLoopPort.advance(0);
    runPosted();
    EXPECT_EQ(camera.accessRequests, 1);
    EXPECT_TRUE(manager.hasPermission);
    EXPECT_TRUE(manager.isSessionRunning);
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::started}));
}

TEST_F(MirrorManagerTest, AccessRefusedAtThePromptStartsNothing) {
    camera.status = Status::notDetermined;
    camera.statusAfterRequest = Status::denied;
    manager.startSession();
    platform.runLoopPort.advance(0);
    runPosted();
    EXPECT_FALSE(manager.hasPermission);
    EXPECT_EQ(camera.steps, Steps{});
}

TEST_F(MirrorManagerTest, AnAnswerAfterThePanelHasGoneStartsNothing) {
    camera.status = Status::notDetermined;
    manager.startSession();
    manager.stopSession();
    platform.runLoopPort.advance(0);
    runPosted();
    EXPECT_EQ(camera.steps, Steps{});
}

TEST_F(MirrorManagerTest, UnmirroredTheFrameIsShownUnflippedUntilTheNextLaunch) {
    EXPECT_EQ(view.horizontalScale(), -1);
    view.toggleMirrored();
    EXPECT_FALSE(manager.isMirrored);
    EXPECT_EQ(view.horizontalScale(), 1);
    EXPECT_TRUE(platform.userDefaultsPort.keys().empty()) << "it is not stored";
    MirrorManager nextLaunch(platform);
    EXPECT_TRUE(nextLaunch.isMirrored);
}

TEST_F(MirrorManagerTest, AsksForSmallPicturesAt15FramesASecond) {
    manager.startSession();
    EXPECT_EQ(camera.configuration.framesPerSecond, 15);
    EXPECT_LE(camera.configuration.width, 640);
    EXPECT_LE(camera.configuration.height, 480);
}

TEST_F(MirrorManagerTest, TheCameraStartsAndStopsOffTheMainThreadInOrder) {
    manager.startSession();
    EXPECT_EQ(camera.steps, Steps{CameraStep::made});
    manager.stopSession();
    manager.startSession();
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::made}));
    runPosted();
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::made, CameraStep::started,
                                   CameraStep::stopped, CameraStep::started}));
}

TEST_F(MirrorManagerTest, FramesReachTheMainThreadOneAtATime) {
    manager.startSession();
    runPosted();
    const auto first = picture();
    deliver(first);
    deliver(picture()); // comes while the first is under way
    EXPECT_FALSE(manager.latestFrame.get());
    runPosted();
    EXPECT_EQ(manager.latestFrame.get(), first);
    const auto third = picture();
    deliver(third);
    runPosted();
    EXPECT_EQ(manager.latestFrame.get(), third);
}

TEST_F(MirrorManagerTest, StoppingTakesTheFrameAwayAtOnce) {
    manager.startSession();
    runPosted();
    deliver(picture());
    runPosted();
    manager.stopSession();
    EXPECT_FALSE(manager.latestFrame.get());
    EXPECT_FALSE(manager.isSessionRunning);
}

TEST_F(MirrorManagerTest, WithoutACameraItStaysAtStartingAndTriesAgain) {
    camera.hasDevice = false;
    manager.startSession();
    EXPECT_TRUE(manager.hasPermission);
    EXPECT_FALSE(manager.isSessionRunning);
    EXPECT_TRUE(view.showsPreview());
    camera.hasDevice = true;
    manager.startSession();
    EXPECT_TRUE(manager.isSessionRunning);
}

TEST_F(MirrorManagerTest, AFrameAfterTheManagerDoesNothing) {
    auto mortal = std::make_unique<MirrorManager>(platform);
    mortal->startSession();
    runPosted();
    deliver(picture());
    mortal.reset();
    runPosted();
    EXPECT_EQ(camera.steps.back(), CameraStep::stopped)
        << "the camera does not outlive the manager";
}

TEST_F(MirrorManagerTest, IsOffByDefault) {
    EXPECT_FALSE(manager.isEnabled);
}

TEST_F(MirrorManagerTest, TheViewStartsAndStopsTheSession) {
    view.appear();
    EXPECT_TRUE(manager.isSessionRunning);
    view.disappear();
    EXPECT_FALSE(manager.isSessionRunning);
}

TEST_F(MirrorManagerTest, TheToggleSaysWhatItWillDo) {
    EXPECT_EQ(view.toggleSymbol(),
              (StyledSymbol{"arrow.left.and.right.righttriangle.left.righttriangle.right.fill", 12,
                            colors::white}));
    EXPECT_EQ(view.toggleHelp(), "Disable mirror");
    view.toggleMirrored();
    EXPECT_EQ(view.toggleSymbol().name,
              "arrow.left.and.right.righttriangle.left.righttriangle.right");
    EXPECT_EQ(view.toggleHelp(), "Enable mirror");
}

TEST_F(MirrorManagerTest, ThePermissionViewLeadsToTheSettings) {
    EXPECT_EQ(view.permissionTitle(),
              (StyledText{"Camera Access Required", {14, FontWeight::semibold, colors::white}}));
    EXPECT_EQ(view.permissionText(), (StyledText{"Grant camera access to use the Mirror widget.",
                                                 {12, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.settingsButton(),
              (StyledText{"Open System Settings", {12, FontWeight::medium, colors::white}}));
    view.openSystemSettings();
    EXPECT_EQ(platform.workspacePort.opened,
              std::vector<std::string>{
                  "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera"});
}

TEST_F(MirrorManagerTest, TheHoverBarShowsItsSymbol) {
    EXPECT_EQ(MirrorCollapsedView::icon(),
              (StyledSymbol{"person.crop.square", 10, Color::white(1, 0.7)}));
}

TEST_F(MirrorManagerTest, AnAnswerThatComesWhileItRunsSetsUpNoSecondSession) {
    camera.status = Status::notDetermined;
    manager.startSession(); // asks
    camera.status = Status::authorized;
    manager.startSession(); // the permission was given elsewhere
    platform.runLoopPort.advance(0);
    runPosted();
    EXPECT_EQ(camera.steps, (Steps{CameraStep::made, CameraStep::started}));
}

TEST_F(MirrorManagerTest, ThePanelsTextsAndSymbolsHaveTheirSizes) {
    EXPECT_EQ(view.startingText(),
              (StyledText{"Starting camera...", {11, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.permissionSymbol().name, "person.crop.square");
    EXPECT_EQ(view.permissionSymbol().size, 28);
    EXPECT_EQ(MirrorExpandedView::togglePadding, 6);
    EXPECT_EQ(MirrorExpandedView::toggleBackground, Color::white(0, 0.5));
}

} // namespace
} // namespace orvelle
