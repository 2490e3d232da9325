#include "Features/Onboarding/OnboardingView.h"

#include "Features/Theme/ThemeManager.h"
#include "Models/PermissionStatus.h"
#include "Models/Symbol.h"
#include "Platform/UserDefaults.h"
#include "Platform/Workspace.h"
#include "Settings/LaunchAtLogin.h"

#include <utility>

namespace orvelle {

namespace {

// The wizard is a window of the desktop's own kind; its ground is dark like the panel's.
constexpr Color primary = colors::white;
constexpr Color secondary = Color::white(1, 0.6);
constexpr Color inactiveDot = colors::gray.withAlpha(0.3);
constexpr Color pink{1, 0.216, 0.373, 1};

constexpr double stepSymbolSize = 36;
constexpr double wideText = 360;
constexpr double narrowText = 320;
const std::string locationUnanswered = "No location service answered. Weather works with cities.";
const std::string automationStatus = "Grant when prompted";

StyledText pageTitle(std::string text) {
    return {std::move(text), {22, FontWeight::bold, primary}};
}

StyledText stepTitle(std::string text) {
    return {std::move(text), {18, FontWeight::semibold, primary}};
}

OnboardingView::Paragraph paragraph(std::string text, double maximumWidth,
                                    Color color = secondary) {
    return {{std::move(text), {13, FontWeight::regular, color}}, maximumWidth};
}

StyledText statusLine(std::string text, Color color = secondary) {
    return {std::move(text), {11, FontWeight::regular, color}};
}

} // namespace

OnboardingView::OnboardingView(std::function<void()> onComplete, const ThemeManager& theme,
                               Platform& platform)
    : onComplete_(std::move(onComplete)), theme_(theme), platform_(platform),
      locationAuthorization_(
          platform.locationService().observeAuthorization([this] { readStatus(); })),
      calendarAuthorization_(
          platform.eventStore().observeAuthorizationStatus([this] { readStatus(); })) {
    readStatus();
}

void OnboardingView::appear() {
    platform_.locationService().refreshAuthorization();
    readStatus();
}

void OnboardingView::readStatus() {
    const auto location = platform_.locationService().authorizationStatus();
    locationStatusText = statusText(location);
    if (location != LocationAuthorization::notDetermined)
        isLocationUnanswered = false;
    calendarStatusText = statusText(platform_.eventStore().authorizationStatus());
    cameraStatusText = statusText(platform_.camera().authorizationStatus());
}

OnboardingView::Content OnboardingView::stepContent(Step step) const {
    switch (step) {
    case Step::welcome:
        return welcomeStep();
    case Step::location: {
        auto content = permissionStep(
            {"location.fill"_symbol, stepSymbolSize, colors::blue}, "Location Access",
            "Orvelle uses your location to show local weather conditions in the notch bar.",
            "Allow Location", locationStatusText);
        if (isLocationUnanswered)
            content.note = statusLine(locationUnanswered);
        return content;
    }
    case Step::calendar:
        return permissionStep({"calendar"_symbol, stepSymbolSize, colors::red}, "Calendar Access",
                              "See your upcoming events at a glance right from the notch. Orvelle "
                              "reads your calendar to display the next event.",
                              "Allow Calendar", calendarStatusText);
    case Step::camera:
        return permissionStep(
            {"camera.fill"_symbol, stepSymbolSize, colors::green}, "Camera Access",
            "The Mirror widget lets you use your webcam as a quick mirror. Camera access is only "
            "used when the Mirror feature is enabled.",
            "Allow Camera", cameraStatusText);
    case Step::automation:
        return permissionStep(
            {"music.note"_symbol, stepSymbolSize, pink}, "Automation Access",
            "Orvelle reads now-playing info from Spotify and Apple Music via AppleScript. You may "
            "see a prompt when media is first detected.",
            "Open System Settings", automationStatus);
    case Step::launchAtLogin:
        return launchAtLoginStep();
    case Step::done:
        break;
    }
    return doneStep();
}

OnboardingView::Content OnboardingView::welcomeStep() {
    Content content;
    content.symbol = {"rectangle.topthird.inset.filled"_symbol, stepSymbolSize, primary};
    content.title = pageTitle("Welcome to Orvelle");
    content.paragraphs = {
        paragraph("Transform your MacBook's notch into a powerful control center with media "
                  "controls, weather, calendar, file shelf, and more.",
                  wideText),
        paragraph("Let's set up a few permissions so everything works out of the box.",
                  narrowText)};
    return content;
}

OnboardingView::Content OnboardingView::permissionStep(StyledSymbol symbol, std::string title,
                                                       std::string description,
                                                       std::string buttonTitle,
                                                       const std::string& status) {
    const bool isGranted = status == grantedStatusText;
    Content content;
    content.symbol =
        isGranted ? StyledSymbol{"checkmark.circle.fill"_symbol, stepSymbolSize, colors::green}
                  : symbol;
    content.title = stepTitle(std::move(title));
    content.paragraphs = {paragraph(std::move(description), wideText)};
    if (!isGranted)
        content.button = std::move(buttonTitle);
    content.status = statusLine(status, isGranted ? colors::green : secondary);
    return content;
}

OnboardingView::Content OnboardingView::launchAtLoginStep() const {
    Content content;
    content.symbol = {"power"_symbol, stepSymbolSize, theme_.accentColor()};
    content.title = stepTitle("Launch at Login");
    content.paragraphs = {
        paragraph("Orvelle is a productivity tool that works best when it's always available. "
                  "Enable launch at login so it starts automatically with your Mac.",
                  wideText)};
    content.toggle = Toggle{launchAtLogin ? "Launches at Login" : "Off", launchAtLogin};
    content.status = statusLine(launchAtLogin ? "Orvelle will start automatically"
                                              : "You can change this later in Settings");
    return content;
}

OnboardingView::Content OnboardingView::doneStep() const {
    Content content;
    content.symbol = {"checkmark.circle.fill"_symbol, stepSymbolSize, colors::green};
    content.title = pageTitle("You're All Set!");
    content.paragraphs = {paragraph("Orvelle is ready to use. Hover over the notch to see your "
                                    "widgets, or pull down to expand the full panel.",
                                    wideText)};
    content.tips = {tipRow("hand.point.up.fill"_symbol, "Hover the notch to see quick widgets"),
                    tipRow("hand.draw.fill"_symbol, "Swipe down to expand the full panel"),
                    tipRow("gearshape.fill"_symbol, "Right-click the menu bar icon for settings")};
    return content;
}

OnboardingView::Tip OnboardingView::tipRow(std::string_view icon, std::string text) const {
    return {{icon, 13, theme_.accentColor()},
            {std::move(text), {13, FontWeight::regular, primary}}};
}

OnboardingView::Navigation OnboardingView::navigation() const {
    const bool isFirst = currentStep == 0;
    const bool isLast = currentStep + 1 == steps.size();
    Navigation navigation;
    navigation.showsBack = !isFirst && !isLast;
    navigation.showsSkip = !isFirst;
    navigation.skipOpacity = isLast ? 0 : 1;
    navigation.forward = isFirst ? "Get Started" : isLast ? "Finish Setup" : "Next";
    return navigation;
}

std::vector<Color> OnboardingView::dotColors() const {
    std::vector<Color> dots;
    for (std::size_t step = 0; step < steps.size(); ++step)
        dots.push_back(step <= currentStep ? theme_.accentColor() : inactiveDot);
    return dots;
}

void OnboardingView::goBack() {
    if (navigation().showsBack)
        currentStep = currentStep - 1;
}

void OnboardingView::skip() {
    if (navigation().showsSkip)
        advance();
}

void OnboardingView::goForward() {
    if (currentStep + 1 == steps.size())
        onComplete_();
    else
        advance();
}

void OnboardingView::advance() {
    if (currentStep + 1 < steps.size())
        currentStep = currentStep + 1;
}

void OnboardingView::performAction() {
    switch (steps.at(currentStep)) {
    case Step::location:
        return requestLocationPermission();
    case Step::calendar:
        return requestCalendarPermission();
    case Step::camera:
        return requestCameraPermission();
    case Step::automation:
        return openAutomationSettings();
    case Step::welcome:
    case Step::launchAtLogin:
    case Step::done:
        return;
    }
}

void OnboardingView::requestLocationPermission() {
    isLocationUnanswered = false;
    locationManagerHolder_ = std::make_unique<LocationPermissionRequester>(platform_, [this] {
        isLocationUnanswered = platform_.locationService().authorizationStatus() ==
                               LocationAuthorization::notDetermined;
    });
    locationManagerHolder_->request();
}

void OnboardingView::requestCalendarPermission() {
    calendarRequest_ = platform_.eventStore().requestFullAccess([this](bool) { readStatus(); });
}

void OnboardingView::requestCameraPermission() {
    cameraRequest_ = platform_.camera().requestAccess([this](bool) { readStatus(); });
}

void OnboardingView::openAutomationSettings() {
    platform_.workspace().open(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Automation");
}

void OnboardingView::updateLaunchAtLogin(bool enabled) {
    launchAtLogin = setLaunchAtLogin(platform_, enabled) ? enabled : !enabled;
}

} // namespace orvelle
