#include "Features/Onboarding/OnboardingBinding.h"

#include "Features/Theme/ThemeManager.h"

namespace orvelle {

namespace {

OnboardingContentValue contentValue(const OnboardingView::Content& content) {
    OnboardingContentValue value;
    value.symbol = toQt(content.symbol);
    value.title = toQt(content.title);
    for (const auto& paragraph : content.paragraphs)
        value.paragraphs.push_back(QVariant::fromValue(
            OnboardingTextValue{toQt(paragraph.text), paragraph.maximumWidth.value_or(0)}));
    if (content.button)
        value.button = toQt(std::string_view(*content.button));
    if (content.toggle) {
        value.toggle = toQt(std::string_view(content.toggle->label));
        value.isOn = content.toggle->isOn;
    }
    value.status = toQt(content.status);
    value.note = toQt(content.note);
    for (const auto& tip : content.tips)
        value.tips.push_back(
            QVariant::fromValue(OnboardingTipValue{toQt(tip.symbol), toQt(tip.text)}));
    return value;
}

} // namespace

void OnboardingBinding::attach(const ViewEnvironment& environment) {
    const auto& theme = environment.notch.themeManager;
    view_.emplace(environment.completeOnboarding, theme, environment.platform);
    follow(view_->currentStep, view_->locationStatusText, view_->isLocationUnanswered,
           view_->calendarStatusText, view_->cameraStatusText, view_->launchAtLogin, theme);
}

void OnboardingBinding::refresh() {
    const auto step = view_->currentStep.get();
    show_step(static_cast<int>(step)); // first, while the view still has what it is to move out
    show_content(contentValue(view_->stepContent(view_->steps.at(step))));
    const auto navigation = view_->navigation();
    show_navigation({navigation.showsBack, navigation.showsSkip, navigation.skipOpacity,
                     toQt(std::string_view(navigation.forward))});
    QVariantList dots;
    for (const auto& color : view_->dotColors())
        dots.push_back(toQt(color));
    show_dots(dots);
}

} // namespace orvelle
