#pragma once

#include "Foundation/Published.h"
#include "Platform/Appearance.h"
#include "Platform/Linux/BusService.h"

#include <optional>
#include <string>

namespace orvelle {

/// The accent of the desktop's settings portal, which is followed while it runs; where it tells
/// none, the accent of KDE's settings file as it stood at the first question; else the calm blue.
/// A colour with a component outside 0 to 1 counts as none, as the portal's interface says.
///
/// The portal is first asked after the first question here, once the event loop runs.
class PortalAppearance : public Appearance {
public:
    PortalAppearance(RunLoop& runLoop, BusProvider sessionBus, std::string kdeglobals);

    Color controlAccentColor() const override;
    Subscription observeSystemColorsChanges(std::function<void()> changed) override;

private:
    void start() const;
    void ask();
    void accept(const QVariant& value);

    std::string kdeglobals_;
    // Asking for the colour is what starts the watch on it.
    mutable bool started_ = false;
    mutable Color accent_;
    mutable Color fallback_;
    Event<> changed_;
    mutable BusService portal_;
};

/// The "AccentColor" of the "General" group of KDE's settings file; none when there is none.
std::optional<Color> parseKdeAccent(std::string_view kdeglobals);

} // namespace orvelle
