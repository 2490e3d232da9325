#pragma once

#include "Platform/Platform.h"
#include "Settings/SettingsPage.h"

namespace orvelle {

class UndoOffer;

/// The appearance page of the settings.
class AppearanceSettingsView : public SettingsPage {
public:
    explicit AppearanceSettingsView(Platform& platform = Platform::shared(),
                                    UndoOffer* undo = nullptr);

    /// The id of the row with the button.
    static constexpr std::string_view reset = "resetDefaults";

    /// Writes every value, so that the keys exist afterwards.
    void resetDefaults();

protected:
    std::vector<SettingsRow> makeRows() const override;
    void pressed(std::string_view id) override;

private:
    /// What belongs to the mode: nothing, the custom colour's rows or a text.
    void appendMode(std::vector<SettingsRow>& list, std::string_view mode) const;
    SettingsRow colorRow(std::string label, const SettingKey<double>& key) const;

    UndoOffer* undo_;
};

} // namespace orvelle
