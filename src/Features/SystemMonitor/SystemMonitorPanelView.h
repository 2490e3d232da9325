#pragma once

#include "Features/SystemMonitor/SystemMonitorModules.h"
#include "Platform/Formatting.h"
#include "Platform/Platform.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/GlassBackground.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class SystemMonitorManager;

/// The panel of the machine's load: rows of cells, scrolling when they need more room. Lengths are
/// points.
class SystemMonitorPanelView {
public:
    /// A symbol, and beside it the label over the value.
    struct Metric {
        static constexpr double spacing = 6;
        static constexpr double symbolWidth = 16;
        static constexpr double padding = 8;
        static constexpr GlassBackground background{.cornerRadius = 8, .opacity = 0.15};

        StyledSymbol symbol;
        StyledText label;
        StyledText value;
        bool operator==(const Metric&) const = default;
    };
    using Row = std::vector<Metric>;

    explicit SystemMonitorPanelView(const SystemMonitorManager& manager,
                                    Platform& platform = Platform::shared());

    static constexpr double spacing = 10; ///< between rows and between cells

    static constexpr double dimmedOpacity = 0.35;

    SystemMonitorModules modules;

    /// Paler until they were measured.
    double figuresOpacity() const;

    /// Stands instead of the rows when every module is off.
    std::optional<FilePlaceholder> placeholder() const;
    /// Cells of one row share its width equally; a row without cells is left out.
    std::vector<Row> rows() const;

private:
    static Metric metricView(std::string label, std::string value, std::string_view icon,
                             Color accentColor);
    Row loadRow() const;
    Row networkRow() const;

    const SystemMonitorManager& manager_;
    const Formatting& formatting_;
};

} // namespace orvelle
