#pragma once

#include "App/Constants.h"
#include "Core/Animation/NotchAnimator.h"
#include "Core/NotchEnvironment.h"
#include "Extensions/ColorTheme.h"
#include "Foundation/Color.h"
#include "Foundation/Geometry.h"
#include "Models/NotchState.h"
#include "Models/Symbol.h"
#include "Platform/Platform.h"
#include "Settings/Setting.h"
#include "Views/Components/AnimatedSlider.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/NotchShape.h"
#include "Views/Components/Stroke.h"
#include "Views/Components/TextStyle.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The root of the notch's window: a black shape that hangs from the screen's top edge, with the
/// hover bar or the tabbed panel inside. Lengths are points.
class NotchContentView {
public:
    struct TabButton {
        ActivePanel panel;
        std::string_view label; ///< shown as help
        StyledSymbol symbol;
        bool isActive = false;
        Color background;
        bool operator==(const TabButton&) const = default;
    };
    /// The colours of a tab.
    struct TabLook {
        Color symbol;
        Color background;
        bool operator==(const TabLook&) const = default;
    };
    /// The shape's outline.
    struct Border {
        NotchShape shape;
        Stroke stroke;
        bool operator==(const Border&) const = default;
    };
    /// A system level, drawn over whatever the shape holds.
    struct HUDOverlay {
        static constexpr double spacing = 8;
        static constexpr double padding = 16;
        static constexpr Color background = Color::white(0, 0.85);
        static constexpr Size sliderSize{AppConstants::HUD::sliderWidth,
                                         AppConstants::HUD::sliderHeight};
        StyledSymbol symbol;
        AnimatedSlider slider;
        NotchShape shape;
        bool operator==(const HUDOverlay&) const = default;
    };

    /// `openSettings` opens the settings window; without it the context menu has no entry.
    explicit NotchContentView(const NotchEnvironment& environment,
                              std::function<void()> openSettings = {},
                              Platform& platform = Platform::shared());

    static constexpr Color background = colors::black;
    static constexpr double tabBarPadding = 12; ///< on the left and right
    /// Clears the physical notch.
    static constexpr double tabBarTopPadding = AppConstants::Notch::defaultHeight + 4;
    static constexpr double tabSpacing = 4;
    static constexpr double tabMinHeight = 24;
    static constexpr double tabCornerRadius = 5;
    static constexpr double dividerPadding = 16; ///< on the left and right
    static constexpr double contentPadding = 12;
    static constexpr double wingTop = 7; ///< of what stands beside the notch, in the open panel
    static constexpr StyledSymbol settingsButton{"gear"_symbol, 12, notchSecondary};
    static constexpr double settingsButtonRoom = 40; ///< beside the notch
    static constexpr Seconds hudFadeDuration = 0.2;  ///< eased in and out

    /// What the root draws in a state: one record, so that nobody sees the size of one state with
    /// the content of another.
    struct Stage {
        Size size;
        NotchShape shape;
        Spring animation;
        std::optional<Border> border;
        // The size of each that stands in the shape; the others leave at the size that they had.
        std::optional<Size> hoverBar;
        std::optional<Size> expandedContent;
        bool operator==(const Stage&) const = default;
    };

    Setting<std::string_view> animationSpeed;

    std::set<std::string> visibleWidgetIDs() const;
    /// On each side of the notch while hovering.
    double dynamicHoverPadding() const;
    double hoveringWidth() const;
    Size targetSize() const;
    NotchShape currentNotchShape() const;
    /// None while collapsed, so that the closed notch blends into the screen's black.
    std::optional<Border> borderOverlay() const;
    Spring stateAnimation() const;
    Stage stage() const;

    /// How wide the open panel is beside the notch, from where its tabs begin.
    double wingWidth() const;

    /// The hover bar's view stands in the shape; otherwise the tabbed panel.
    bool showsCollapsedView() const;

    /// In the user's order, whether or not the panel's feature is enabled.
    std::vector<TabButton> tabButtons() const;
    /// A tab goes from one look to the other as `NotchAnimator::panelSwitch` moves.
    TabLook tabLook(bool isActive) const;
    /// What a click on a tab does. The new panel comes from the side where it stands in the fixed
    /// order of panels, whatever order the user gave the tabs.
    void selectPanel(ActivePanel panel);
    /// Where the old panel leaves to.
    Edge panelRemovalEdge() const;
    /// What stands in a panel that has no view of its own.
    static FilePlaceholder panelPlaceholder(ActivePanel panel);
    std::vector<MenuEntry> contextMenu() const;
    /// Where there is room beside the notch, and settings to open.
    bool showsSettingsButton() const;
    void openSettings() const;

    std::optional<HUDOverlay> hudOverlay() const;
    std::string_view hudIconName(HUDType type) const;
    /// What a drag of the overlay's slider does.
    void setHUDValue(double value);

private:
    double notchWidth() const;

    const NotchEnvironment environment_;
    const std::function<void()> openSettings_;
};

} // namespace orvelle
