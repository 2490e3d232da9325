#include "Features/Onboarding/OnboardingView.h"

#include "Features/Theme/ThemeManager.h"
#include "Models/PermissionStatus.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/AppFixture.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

namespace orvelle {
namespace {

using Step = OnboardingView::Step;

const std::vector<Step> permissionSteps{Step::location, Step::calendar, Step::camera};

class OnboardingViewTest : public testing::Test {
protected:
    OnboardingViewTest() {
        platform.eventStorePort.status = EventAuthorizationStatus::notDetermined;
        platform.cameraPort.status = CameraAuthorizationStatus::notDetermined;
    }

    /// The wizard as it stands when it opens.
    OnboardingView& view() {
        if (!view_)
            view_.emplace([this] { ++completions; }, theme, platform);
        return *view_;
    }
    void goTo(Step step) {
        while (view().steps.at(view().currentStep) != step)
            view().goForward();
    }
    OnboardingView::Content content() {
        return view().stepContent(view().steps.at(view().currentStep));
    }
    std::string status() { return content().status.value_or(StyledText{}).text; }
    std::optional<bool> storedLaunchAtLogin() {
        return platform.userDefaultsPort.storedBoolean("launchAtLogin");
    }
    void runPosted() { platform.runLoopPort.advance(0); }

    SimulatedPlatform platform;
    ThemeManager theme{platform};
    int completions = 0;

private:
    std::optional<OnboardingView> view_;
};

TEST_F(OnboardingViewTest, SkipOnCameraLeadsToAutomationWithoutARequest) {
    goTo(Step::camera);
    view().skip();
    runPosted();
    EXPECT_EQ(view().steps.at(view().currentStep), Step::automation);
    EXPECT_EQ(platform.cameraPort.accessRequests, 0);
    EXPECT_EQ(view().cameraStatusText.get(), "Not yet requested");
}

TEST_F(OnboardingViewTest, AGrantedStepShowsTheCheckMarkAndNoButton) {
    platform.locationServicePort.authorization = LocationAuthorization::authorizedAlways;
    platform.eventStorePort.status = EventAuthorizationStatus::fullAccess;
    platform.cameraPort.status = CameraAuthorizationStatus::authorized;
    for (const auto step : permissionSteps) {
        goTo(step);
        EXPECT_EQ(content().symbol.name, "checkmark.circle.fill");
        EXPECT_EQ(content().symbol.color, colors::green);
        EXPECT_EQ(content().button, std::nullopt);
        EXPECT_EQ(status(), "Granted");
        EXPECT_EQ(content().status->style.color, colors::green);
    }
}

TEST_F(OnboardingViewTest, ACalendarThatTurnsOutToBeOpenShowsAtOnce) {
    goTo(Step::calendar);
    EXPECT_EQ(status(), "Not yet requested");
    platform.eventStorePort.change(EventAuthorizationStatus::fullAccess);
    EXPECT_EQ(status(), "Granted");
}

TEST_F(OnboardingViewTest, ALocationStatusOfAuthorizedWhenInUseShowsUnknownAndKeepsTheButton) {
    platform.locationServicePort.authorization = LocationAuthorization::authorizedWhenInUse;
    goTo(Step::location);
    EXPECT_EQ(status(), "Unknown");
    EXPECT_EQ(content().button, "Allow Location");
    EXPECT_EQ(content().symbol.name, "location.fill");
}

TEST_F(OnboardingViewTest, NoBackOnTheFirstAndOnTheLastStep) {
    for (const auto step : view().steps) {
        goTo(step);
        const bool isBetween = step != Step::welcome && step != Step::done;
        const auto before = view().currentStep.get();
        EXPECT_EQ(view().navigation().showsBack, isBetween) << before;
        view().goBack();
        EXPECT_EQ(view().currentStep.get(), isBetween ? before - 1 : before);
    }
}

TEST_F(OnboardingViewTest, TheToggleOnLaunchAtLoginStartsOffEvenWhenTheLoginItemIsRegistered) {
    platform.loginItemPort.isEnrolled = true;
    platform.userDefaultsPort.set("launchAtLogin", true);
    goTo(Step::launchAtLogin);
    EXPECT_FALSE(view().launchAtLogin);
    EXPECT_FALSE(content().toggle->isOn);
    EXPECT_EQ(content().toggle->label, "Off");
    EXPECT_EQ(status(), "You can change this later in Settings");
}

class OnboardingWindowTest : public AppFixture {};

TEST_F(OnboardingWindowTest, ClosingTheWindowOnTheLocationStepEndsTheWizardAsCompleted) {
    app.applicationDidFinishLaunching();
    OnboardingView view(views.onboarding.onComplete, app.themeManager, platform);
    view.goForward();
    ASSERT_EQ(view.steps.at(view.currentStep), Step::location);
    EXPECT_EQ(app.notchWindowController, nullptr);
    views.onboarding.close();
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), true);
    EXPECT_FALSE(views.onboarding.isShown);
    EXPECT_NE(app.notchWindowController, nullptr);
}

TEST_F(OnboardingViewTest, TheButtonsFollowTheStep) {
    std::vector<std::string> forward;
    for (const auto step : view().steps) {
        goTo(step);
        forward.push_back(view().navigation().forward);
        EXPECT_EQ(view().navigation().showsSkip, step != Step::welcome);
        EXPECT_EQ(view().navigation().skipOpacity, step == Step::done ? 0 : 1);
    }
    EXPECT_EQ(forward, (std::vector<std::string>{"Get Started", "Next", "Next", "Next", "Next",
                                                 "Next", "Finish Setup"}));
}

TEST_F(OnboardingViewTest, OnTheLastStepForwardFinishesAndSkipStays) {
    goTo(Step::done);
    view().skip();
    EXPECT_EQ(view().currentStep.get(), view().steps.size() - 1);
    EXPECT_EQ(completions, 0);
    view().goForward();
    EXPECT_EQ(view().currentStep.get(), view().steps.size() - 1);
    EXPECT_EQ(completions, 1);
}

TEST_F(OnboardingViewTest, TheDotsAreColoredUpToThePresentStep) {
    goTo(Step::calendar);
    const auto dots = view().dotColors();
    ASSERT_EQ(dots.size(), 7u);
    for (std::size_t index = 0; index < dots.size(); ++index)
        EXPECT_EQ(dots[index], index <= 2 ? theme.accentColor() : colors::gray.withAlpha(0.3));
}

TEST_F(OnboardingViewTest, ThePermissionStepsHaveOneForm) {
    struct Row {
        Step step;
        std::string symbol, title, button, status;
    };
    const std::vector<Row> rows{
        {Step::location, "location.fill", "Location Access", "Allow Location", "Not yet requested"},
        {Step::calendar, "calendar", "Calendar Access", "Allow Calendar", "Not yet requested"},
        {Step::camera, "camera.fill", "Camera Access", "Allow Camera", "Not yet requested"},
        {Step::automation, "music.note", "Automation Access", "Open System Settings",
         "Grant when prompted"}};
    for (const auto& row : rows) {
        goTo(row.step);
        EXPECT_EQ(content().symbol.name, row.symbol);
        EXPECT_EQ(content().symbol.size, 36);
        EXPECT_EQ(content().title.text, row.title);
        EXPECT_EQ(content().title.style.size, 18);
        EXPECT_EQ(content().button, row.button);
        EXPECT_EQ(status(), row.status);
        EXPECT_EQ(content().status->style.size, 11);
        ASSERT_EQ(content().paragraphs.size(), 1u);
        EXPECT_EQ(content().paragraphs.front().maximumWidth, 360);
    }
}

TEST_F(OnboardingViewTest, NothingIsAskedForUntilAStepsButtonIsPressed) {
    for (const auto step : view().steps)
        goTo(step);
    runPosted();
    EXPECT_EQ(platform.locationServicePort.last, nullptr);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 0);
    EXPECT_EQ(platform.cameraPort.accessRequests, 0);
    EXPECT_TRUE(platform.workspacePort.opened.empty());
}

TEST_F(OnboardingViewTest, AnAnsweredRequestChangesTheStatusWord) {
    platform.cameraPort.statusAfterRequest = CameraAuthorizationStatus::denied;
    platform.eventStorePort.statusAfterRequest = EventAuthorizationStatus::writeOnly;
    goTo(Step::location);
    view().performAction();
    ASSERT_NE(platform.locationServicePort.last, nullptr);
    EXPECT_EQ(platform.locationServicePort.last->requestCount, 1);
    platform.locationServicePort.changeAuthorization(LocationAuthorization::authorizedAlways);
    EXPECT_EQ(status(), "Granted");

    goTo(Step::calendar);
    view().performAction();
    EXPECT_EQ(status(), "Not yet requested");
    runPosted();
    EXPECT_EQ(status(), "Write-only - enable full access in System Settings");

    goTo(Step::camera);
    view().performAction();
    runPosted();
    EXPECT_EQ(status(), "Denied - enable in System Settings");
    EXPECT_EQ(content().button, "Allow Camera") << "the wizard goes on all the same";
}

TEST_F(OnboardingViewTest, WhoComesBackToTheWindowSeesWhatHasChangedMeanwhile) {
    platform.locationServicePort.authorization = LocationAuthorization::denied;
    EXPECT_EQ(view().locationStatusText.get(), "Denied - enable in System Settings");
    platform.locationServicePort.laterAuthorization = LocationAuthorization::authorizedAlways;
    platform.eventStorePort.status = EventAuthorizationStatus::fullAccess;
    platform.cameraPort.status = CameraAuthorizationStatus::denied;
    view().appear();
    EXPECT_EQ(view().calendarStatusText.get(), "Granted");
    EXPECT_EQ(view().cameraStatusText.get(), "Denied - enable in System Settings");
    runPosted();
    EXPECT_EQ(view().locationStatusText.get(), "Granted");
    EXPECT_EQ(platform.eventStorePort.accessRequests + platform.cameraPort.accessRequests, 0);
}

TEST_F(OnboardingViewTest, ARequestThatNobodyAnswersSaysSoBelowTheStatus) {
    auto& location = platform.locationServicePort;
    goTo(Step::location);
    EXPECT_EQ(content().note, std::nullopt);
    view().performAction();
    EXPECT_EQ(content().note, std::nullopt);
    location.last->fail("there is no service");
    EXPECT_EQ(status(), "Not yet requested");
    ASSERT_TRUE(content().note);
    EXPECT_TRUE(content().note->text.starts_with("No location service answered"));
    EXPECT_EQ(content().note->style.size, 11);
    view().performAction();
    EXPECT_EQ(content().note, std::nullopt) << "asked again, it may yet answer";
    location.last->fail("there is no service");
    ASSERT_TRUE(content().note);
    location.changeAuthorization(LocationAuthorization::authorizedAlways);
    EXPECT_EQ(content().note, std::nullopt);
}

TEST_F(OnboardingViewTest, ARefusalIsNoSilence) {
    goTo(Step::location);
    view().performAction();
    platform.locationServicePort.changeAuthorization(LocationAuthorization::denied);
    platform.locationServicePort.last->fail("refused");
    EXPECT_EQ(content().note, std::nullopt);
}

TEST_F(OnboardingViewTest, ABeginningWizardKnowsWhatWasAnsweredBefore) {
    platform.locationServicePort.changeAuthorization(LocationAuthorization::denied);
    EXPECT_EQ(view().locationStatusText.get(), "Denied - enable in System Settings");
    EXPECT_EQ(platform.locationServicePort.managerCount, 0);
}

TEST_F(OnboardingViewTest, TheAutomationStepOpensTheSystemsSettings) {
    goTo(Step::automation);
    view().performAction();
    EXPECT_EQ(platform.workspacePort.opened,
              (std::vector<std::string>{
                  "x-apple.systempreferences:com.apple.preference.security?Privacy_Automation"}));
    EXPECT_EQ(status(), "Grant when prompted");
}

TEST_F(OnboardingViewTest, TheToggleEnrollsAndWithdrawsTheLoginItem) {
    goTo(Step::launchAtLogin);
    view().updateLaunchAtLogin(true);
    EXPECT_TRUE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(storedLaunchAtLogin(), true);
    EXPECT_EQ(content().toggle->label, "Launches at Login");
    EXPECT_EQ(status(), "Orvelle will start automatically");
    view().updateLaunchAtLogin(false);
    EXPECT_FALSE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(storedLaunchAtLogin(), false);
}

TEST_F(OnboardingViewTest, AToggleThatFailsGoesBackAndLeavesTheSetting) {
    platform.loginItemPort.works = false;
    goTo(Step::launchAtLogin);
    view().updateLaunchAtLogin(true);
    EXPECT_FALSE(view().launchAtLogin);
    EXPECT_EQ(storedLaunchAtLogin(), std::nullopt);
}

TEST_F(OnboardingViewTest, TheFirstAndTheLastStepsHaveLargeTitlesAndTheLastItsTips) {
    EXPECT_EQ(content().title.text, "Welcome to Orvelle");
    EXPECT_EQ(content().title.style.size, 22);
    ASSERT_EQ(content().paragraphs.size(), 2u);
    EXPECT_EQ(content().paragraphs[0].text.style.size, 13);
    EXPECT_EQ(content().paragraphs[0].maximumWidth, 360);
    EXPECT_EQ(content().paragraphs[1].maximumWidth, 320);
    goTo(Step::done);
    EXPECT_EQ(content().title.text, "You're All Set!");
    ASSERT_EQ(content().tips.size(), 3u);
    EXPECT_EQ(content().tips[0].text.text, "Hover the notch to see quick widgets");
    for (const auto& tip : content().tips) {
        EXPECT_EQ(tip.symbol.color, theme.accentColor());
        EXPECT_EQ(tip.symbol.size, tip.text.style.size);
        EXPECT_EQ(tip.text.style, (TextStyle{13, FontWeight::regular, colors::white}));
    }
}

TEST_F(OnboardingViewTest, EachStepsSymbolHasItsColour) {
    const std::tuple<Step, std::string_view, Color> rows[] = {
        {Step::location, "location.fill", colors::blue},
        {Step::calendar, "calendar", colors::red},
        {Step::camera, "camera.fill", colors::green},
        {Step::launchAtLogin, "power", theme.accentColor()},
        {Step::done, "checkmark.circle.fill", colors::green}};
    for (const auto& [step, symbol, color] : rows) {
        goTo(step);
        EXPECT_EQ(content().symbol, (StyledSymbol{symbol, 36, color})) << symbol;
    }
}

} // namespace
} // namespace orvelle
