#pragma once

#include "Core/NotchEnvironment.h"
#include "Features/SystemMonitor/SystemMonitorModules.h"
#include "Foundation/Color.h"
#include "Foundation/Geometry.h"
#include "Models/HoverWidgetOrder.h"
#include "Models/NotchState.h"
#include "Platform/Platform.h"
#include "Views/HoverWidget.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// What stands around the notch when the pointer rests on it: two wings beside it, and a row of
/// widgets below. Lengths are points.
class NotchCollapsedView {
public:
    /// `embeddedWidgets` names the widgets that have a view of their own to be drawn with; any
    /// other widget of kind `embedded` takes no place.
    explicit NotchCollapsedView(const NotchEnvironment& environment,
                                std::set<std::string> embeddedWidgets = {},
                                Platform& platform = Platform::shared());

    static constexpr double topPadding = 4;
    static constexpr double horizontalPadding = 4;
    static constexpr double wingHeight = 20;
    static constexpr double leftWingSpacing = 4;
    static constexpr double rightWingSpacing = 8;
    static constexpr double rightWingTrailingPadding = 4;
    static constexpr double bottomRowSpacing = 10;
    static constexpr Size separatorSize{1, 10}; ///< a capsule between two widgets of the bottom row
    static constexpr Color separatorColor = Color::white(1, 0.15);

    SystemMonitorModules modules;

    /// Nothing is drawn in any other state.
    bool showsHoveringLayout() const;
    /// Keeps the wings off the physical notch.
    double notchSpacerWidth() const;
    std::vector<HoverWidget> leftWing() const;
    std::vector<HoverWidget> rightWing() const;
    std::vector<HoverWidget> bottomRow() const;
    bool hasBottomRowContent() const;
    double bottomPadding() const;

    bool shouldShowWidget(std::string_view id) const;
    /// None for a widget that has nothing to show now.
    std::optional<HoverWidget> widgetView(std::string_view id) const;

    /// A click on the bar beside the widgets.
    void expand();
    /// A click on a widget.
    void expandToPanel(ActivePanel panel);
    /// A click on the play button of what plays.
    void playPause();

private:
    std::vector<HoverWidget> widgets(HoverWidgetPosition zone) const;

    /// Fills in the content of one widget that this view draws itself.
    struct Indicator {
        std::string_view id;
        void (NotchCollapsedView::*fillIn)(HoverWidget& widget) const;
    };
    static const Indicator indicators[];
    void hoverMediaIndicator(HoverWidget& widget) const;
    void hoverBatteryIndicator(HoverWidget& widget) const;
    void hoverWeatherIndicator(HoverWidget& widget) const;
    void hoverCalendarIndicator(HoverWidget& widget) const;
    void hoverTimeIndicator(HoverWidget& widget) const;
    void hoverFileShelfIndicator(HoverWidget& widget) const;
    void hoverNotesIndicator(HoverWidget& widget) const;
    void hoverPomodoroIndicator(HoverWidget& widget) const;
    void hoverSystemStatsIndicator(HoverWidget& widget) const;

    const NotchEnvironment environment_;
    const std::set<std::string> embeddedWidgets_;
};

} // namespace orvelle
