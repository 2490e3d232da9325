#pragma once

#include "Foundation/Published.h"
#include "Models/NotchState.h"
#include "Platform/Platform.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// Which panels stand in the tab bar, and in which order.
class PanelOrderManager {
public:
    struct PanelEntry {
        std::string id; ///< a panel's raw value
        std::int64_t sortOrder = 0;
        bool isVisible = true;
        bool operator==(const PanelEntry&) const = default;
    };

    /// Every panel but the settings, all visible.
    static const std::vector<PanelEntry>& defaultOrder();

    explicit PanelOrderManager(Platform& platform = Platform::shared());

    /// In order of loading; display order comes from `sortOrder`.
    Published<std::vector<PanelEntry>> panelOrder;

    /// The visible panels in display order.
    std::vector<ActivePanel> visiblePanels() const;
    std::vector<PanelEntry> allPanelsSorted() const;
    void toggleVisibility(std::string_view id);
    /// Offsets are rows of `allPanelsSorted`.
    void reorder(const std::set<std::size_t>& from, std::size_t to);
    void resetToDefaults();
    void restore(std::vector<PanelEntry> former);

private:
    void loadOrder();
    void saveOrder();

    Platform& platform_;
};

} // namespace orvelle
