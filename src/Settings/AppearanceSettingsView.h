#pragma once

namespace orvelle {

class UserDefaults;

/// The appearance page of the settings.
class AppearanceSettingsView {
public:
    explicit AppearanceSettingsView(UserDefaults& defaults) : defaults_(defaults) {}

    /// Writes every value, so that the keys exist afterwards.
    void resetDefaults();

private:
    UserDefaults& defaults_;
};

} // namespace orvelle
