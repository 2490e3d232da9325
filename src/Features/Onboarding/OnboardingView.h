#pragma once

#include "Features/Onboarding/LocationPermissionRequester.h"
#include "Foundation/Published.h"
#include "Platform/CameraService.h"
#include "Platform/EventStore.h"
#include "Platform/Platform.h"
#include "Views/Components/TextStyle.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

class ThemeManager;

/// The wizard of the first launch: one step for each permission that features need, which is asked
/// for only when the user presses the step's button. Lengths are points.
class OnboardingView {
public:
    enum class Step { welcome, location, calendar, camera, automation, launchAtLogin, done };

    struct Paragraph {
        StyledText text;
        std::optional<double> maximumWidth;
        bool operator==(const Paragraph&) const = default;
    };
    struct Tip {
        StyledSymbol symbol; ///< centred in `tipSymbolWidth`
        StyledText text;
        bool operator==(const Tip&) const = default;
    };
    struct Toggle {
        std::string label;
        bool isOn = false;
        bool operator==(const Toggle&) const = default;
    };
    /// Top to bottom.
    struct Content {
        StyledSymbol symbol;
        StyledText title;
        std::vector<Paragraph> paragraphs;
        std::optional<std::string> button; ///< calls `performAction`
        std::optional<Toggle> toggle;      ///< calls `updateLaunchAtLogin`
        std::optional<StyledText> status;
        std::optional<StyledText> note; ///< what the status leaves unsaid
        std::vector<Tip> tips;
        bool operator==(const Content&) const = default;
    };
    struct Navigation {
        bool showsBack = false;
        bool showsSkip = false;
        double skipOpacity = 1; ///< at 0 the button keeps its place and takes no press
        std::string forward;    ///< the title of the button that goes on or finishes
        bool operator==(const Navigation&) const = default;
    };

    static constexpr double horizontalPadding = 24;
    static constexpr double verticalPadding = 20;
    static constexpr double tipSymbolWidth = 20;
    static constexpr int transitionDuration = 350; ///< from one step to the next, in milliseconds

    OnboardingView(std::function<void()> onComplete, const ThemeManager& theme,
                   Platform& platform = Platform::shared());

    const std::vector<Step> steps{Step::welcome, Step::location,   Step::calendar,
                                  Step::camera,  Step::automation, Step::launchAtLogin,
                                  Step::done};

    Published<std::size_t> currentStep{0}; ///< an index into `steps`
    Published<std::string> locationStatusText;
    /// The last request found nobody who could ask the user.
    Published<bool> isLocationUnanswered{false};
    Published<std::string> calendarStatusText;
    Published<std::string> cameraStatusText;
    /// Off at first, whatever is registered.
    Published<bool> launchAtLogin{false};

    Content stepContent(Step step) const;
    Navigation navigation() const;
    /// One for each step.
    std::vector<Color> dotColors() const;

    /// Reads the permissions anew: when the window appears, and when its user returns to it.
    void appear();

    void goBack();
    void skip();
    /// To the next step; on the last one, the end.
    void goForward();
    /// What the present step's button does.
    void performAction();
    void updateLaunchAtLogin(bool enabled);

    void requestLocationPermission();
    void requestCalendarPermission();
    void requestCameraPermission();
    void openAutomationSettings();

private:
    static Content welcomeStep();
    static Content permissionStep(StyledSymbol symbol, std::string title, std::string description,
                                  std::string buttonTitle, const std::string& status);
    Content launchAtLoginStep() const;
    Content doneStep() const;
    Tip tipRow(std::string_view icon, std::string text) const;
    void advance();
    void readStatus();

    std::function<void()> onComplete_;
    const ThemeManager& theme_;
    Platform& platform_;
    std::unique_ptr<LocationPermissionRequester> locationManagerHolder_;
    Subscription locationAuthorization_;
    Subscription calendarAuthorization_;
    Subscription calendarRequest_;
    Subscription cameraRequest_;
};

} // namespace orvelle
