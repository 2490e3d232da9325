#pragma once

#include "Core/SettingsEnvironment.h"
#include "Platform/Platform.h"
#include "Settings/SettingsPage.h"

namespace orvelle {

/// The general page of the settings.
class GeneralSettingsView : public SettingsPage {
public:
    explicit GeneralSettingsView(const SettingsEnvironment& environment,
                                 Platform& platform = Platform::shared());

    // The rows' ids beside the settings' keys.
    static constexpr std::string_view update = "update";
    static constexpr std::string_view report = "reportBug";
    static constexpr std::string_view reset = "resetDefaults";

    /// Writes every value, so that the keys exist afterwards.
    void resetDefaults();

protected:
    std::vector<SettingsRow> makeRows() const override;
    void setOn(std::string_view id, bool on) override;
    void pressed(std::string_view id) override;

private:
    /// The setting says what the desktop has taken: it stays when the desktop refuses.
    void updateLaunchAtLogin(bool enabled);
    SettingsRow clickWidgetRow() const;
    SettingsRow updateRow() const;
    SettingsRow tuningRow(std::string label, const SettingKey<double>& key, SettingsRange range,
                          std::string (*valueText)(double), double valueWidth) const;
    void pressUpdate();

    const SettingsEnvironment environment_;
    Platform& platform_;
    std::vector<Subscription> updateObservers_;
    Subscription clickWidgetObserver_;
};

} // namespace orvelle
