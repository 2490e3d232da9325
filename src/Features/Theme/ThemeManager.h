#pragma once

#include "Foundation/Color.h"
#include "Foundation/Published.h"
#include "Foundation/UUID.h"
#include "Platform/Platform.h"
#include "Settings/Setting.h"

#include <functional>

namespace orvelle {

/// The one source of the accent colour.
class ThemeManager {
public:
    explicit ThemeManager(Platform& platform = Platform::shared());

    Setting<std::string_view> themeMode;
    Setting<double> customAccentHue;        ///< 0 to 1
    Setting<double> customAccentSaturation; ///< 0 to 1
    /// A new value tells the views that the desktop's accent may have changed.
    Published<UUID> systemAccentRefresh;

    Color accentColor() const;

    /// Now, and whenever something changes that the colours come from.
    [[nodiscard]] Subscription observe(std::function<void(const ThemeManager&)> changed) const;

private:
    void observeSystemAccentChanges();

    Platform& platform_;
    Subscription appearanceObserver_;
    Subscription screensObserver_;
};

} // namespace orvelle
