#pragma once

#include "Foundation/Published.h"
#include "Models/HoverWidgetOrder.h"
#include "Models/NotchState.h"
#include "Platform/Platform.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// Where each widget of the hover bar stands, and how wide the bar must be for them.
class HoverLayoutManager {
public:
    struct WidgetDefinition {
        std::string_view id;
        std::string_view name;
        std::string_view icon;
        ActivePanel panel; ///< what a click opens
    };
    static const std::vector<WidgetDefinition>& widgetDefinitions();
    static const WidgetDefinition* definition(std::string_view id);
    static const std::vector<HoverWidgetPlacement>& defaultPlacements();

    explicit HoverLayoutManager(Platform& platform = Platform::shared());

    Published<std::vector<HoverWidgetPlacement>> placements;

    /// Every placement of the zone in display order, hidden ones included.
    std::vector<HoverWidgetPlacement> allWidgetsFor(HoverWidgetPosition zone) const;
    /// Those that the user wants shown.
    std::vector<HoverWidgetPlacement> visibleWidgetsFor(HoverWidgetPosition zone) const;

    /// Offsets are rows of `allWidgetsFor(zone)`.
    void reorderWidgets(HoverWidgetPosition zone, const std::set<std::size_t>& from,
                        std::size_t to);
    void toggleVisibility(std::string_view id);
    /// Moves a widget to the end of another zone.
    void changeZone(std::string_view id, HoverWidgetPosition zone);
    void resetToDefaults();
    void restore(std::vector<HoverWidgetPlacement> former);

    /// The padding on each side of a notch of this width, in points: an estimate from a table, so
    /// that it costs no measuring while views are laid out.
    double estimatedHoverWidth(double notchWidth,
                               const std::set<std::string>& visibleWidgetIDs) const;

private:
    void loadPlacements();
    void savePlacements();
    static void renumberZone(std::vector<HoverWidgetPlacement>& list, HoverWidgetPosition zone);
    double estimatedWidth(std::string_view id) const;
    double estimatedSystemStatsWidth() const;

    Platform& platform_;
};

} // namespace orvelle
