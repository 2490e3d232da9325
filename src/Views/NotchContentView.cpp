#include "Views/NotchContentView.h"

#include "Core/HoverLayoutManager.h"
#include "Core/PanelOrderManager.h"
#include "Core/VisibleWidgets.h"
#include "Extensions/ColorTheme.h"
#include "Features/Theme/ThemeManager.h"
#include "Models/Symbol.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

NotchShape notchShape(double bodyInset) {
    return {.bottomCornerRadius = AppConstants::Notch::cornerRadius,
            .topFlare = 14,
            .bodyInset = bodyInset};
}

} // namespace

NotchContentView::NotchContentView(const NotchEnvironment& environment,
                                   std::function<void()> openSettings, Platform& platform)
    : animationSpeed(platform.userDefaults(), Settings::animationSpeed), environment_(environment),
      openSettings_(std::move(openSettings)) {}

std::set<std::string> NotchContentView::visibleWidgetIDs() const {
    return orvelle::visibleWidgetIDs(environment_);
}

double NotchContentView::notchWidth() const {
    const double width = environment_.notchState.notchSize->width;
    return width > 0 ? width : AppConstants::Notch::defaultWidth;
}

double NotchContentView::dynamicHoverPadding() const {
    return environment_.hoverLayoutManager.estimatedHoverWidth(notchWidth(), visibleWidgetIDs());
}

double NotchContentView::hoveringWidth() const {
    return notchWidth() + 2 * dynamicHoverPadding();
}

Size NotchContentView::targetSize() const {
    const auto& state = environment_.notchState;
    return NotchAnimator::sizeForState(state.expandedState, state.notchSize, dynamicHoverPadding());
}

NotchShape NotchContentView::currentNotchShape() const {
    const bool isCollapsed = environment_.notchState.expandedState == NotchExpandedState::collapsed;
    return notchShape(isCollapsed ? 0 : AppConstants::Notch::topFlareInset);
}

std::optional<NotchContentView::Border> NotchContentView::borderOverlay() const {
    if (environment_.notchState.expandedState == NotchExpandedState::collapsed)
        return std::nullopt;
    return Border{currentNotchShape(), {Color::white(1, 0.15), 0.5, 10}};
}

Spring NotchContentView::stateAnimation() const {
    return NotchAnimator::stateSpring(animationSpeed.get());
}

double NotchContentView::wingWidth() const {
    constexpr double gap = 8;
    const double beside = (targetSize().width - notchWidth()) / 2;
    return std::max(0.0, beside - tabBarPadding - gap);
}

bool NotchContentView::showsCollapsedView() const {
    return environment_.notchState.expandedState < NotchExpandedState::expanded;
}

NotchContentView::Stage NotchContentView::stage() const {
    const auto state = environment_.notchState.expandedState.get();
    Stage stage{targetSize(), currentNotchShape(), stateAnimation(), borderOverlay(), {}, {}};
    if (state == NotchExpandedState::hovering)
        stage.hoverBar = Size{hoveringWidth(), stage.size.height};
    if (!showsCollapsedView())
        stage.expandedContent = stage.size;
    return stage;
}

NotchContentView::TabLook NotchContentView::tabLook(bool isActive) const {
    if (!isActive)
        return {notchSecondary, colors::clear};
    return {colors::white, environment_.themeManager.accentColor().withAlpha(0.2)};
}

std::vector<NotchContentView::TabButton> NotchContentView::tabButtons() const {
    std::vector<TabButton> buttons;
    for (const auto panel : environment_.panelOrderManager.visiblePanels()) {
        const bool isActive = panel == environment_.notchState.activePanel;
        const auto look = tabLook(isActive);
        buttons.push_back(
            {panel, label(panel), {icon(panel), 12, look.symbol}, isActive, look.background});
    }
    return buttons;
}

void NotchContentView::selectPanel(ActivePanel panel) {
    auto& state = environment_.notchState;
    state.panelTransitionEdge = state.activePanel < panel ? Edge::trailing : Edge::leading;
    state.activePanel = panel;
}

Edge NotchContentView::panelRemovalEdge() const {
    const bool entersFromTrailing = environment_.notchState.panelTransitionEdge == Edge::trailing;
    return entersFromTrailing ? Edge::leading : Edge::trailing;
}

FilePlaceholder NotchContentView::panelPlaceholder(ActivePanel panel) {
    return filePlaceholder(std::string(label(panel)), icon(panel));
}

std::vector<MenuEntry> NotchContentView::contextMenu() const {
    if (!openSettings_)
        return {};
    return {{"Settings...", openSettings_}};
}

bool NotchContentView::showsSettingsButton() const {
    return openSettings_ && wingWidth() >= settingsButtonRoom;
}

void NotchContentView::openSettings() const {
    if (openSettings_)
        openSettings_();
}

std::optional<NotchContentView::HUDOverlay> NotchContentView::hudOverlay() const {
    const auto& state = environment_.notchState;
    const auto& type = state.hudType.get();
    if (!state.isHUDVisible || !type)
        return std::nullopt;
    return HUDOverlay{
        {hudIconName(*type), 20, colors::white},
        {.value = state.hudValue,
         .tintColor = colors::white,
         .height = AppConstants::HUD::sliderHeight,
         .showThumb = false},
        notchShape(AppConstants::Notch::topFlareInset),
    };
}

std::string_view NotchContentView::hudIconName(HUDType type) const {
    switch (type) {
    case HUDType::volume:
        break;
    case HUDType::brightness:
        return "sun.max.fill"_symbol;
    case HUDType::keyboardBacklight:
        return "keyboard.badge.ellipsis"_symbol;
    }
    return environment_.notchState.hudValue > 0 ? "speaker.wave.2.fill"_symbol
                                                : "speaker.slash.fill"_symbol;
}

void NotchContentView::setHUDValue(double value) {
    environment_.notchState.hudValue = value;
}

} // namespace orvelle
