#pragma once

#include <functional>

namespace orvelle {

class UserDefaults;

/// The general page of the settings.
class GeneralSettingsView {
public:
    /// `updateLaunchAtLogin` registers or ends the login item.
    GeneralSettingsView(UserDefaults& defaults, std::function<void(bool)> updateLaunchAtLogin);

    /// Writes every value, so that the keys exist afterwards.
    void resetDefaults();

private:
    UserDefaults& defaults_;
    std::function<void(bool)> updateLaunchAtLogin_;
};

} // namespace orvelle
