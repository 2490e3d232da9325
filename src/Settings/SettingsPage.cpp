#include "Settings/SettingsPage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvelle {

namespace {

using Kind = SettingsRow::Kind;

bool offers(const std::vector<SettingsChoice>& choices, std::string_view value) {
    return std::any_of(choices.begin(), choices.end(),
                       [value](const SettingsChoice& choice) { return choice.value == value; });
}

} // namespace

SettingsPage::SettingsPage(UserDefaults& defaults)
    : defaults_(defaults), changes_(defaults.observeChanges([this] { refresh(); })) {}

void SettingsPage::flip(std::string_view id, bool on) {
    if (row(id, {Kind::toggle}))
        setOn(id, on);
}

void SettingsPage::slide(std::string_view id, double value) {
    if (const auto* slider = row(id, {Kind::slider}); slider && std::isfinite(value))
        defaults_.set(id, slider->range.snapped(value));
}

void SettingsPage::choose(std::string_view id, std::string_view value) {
    const auto* picker = row(id, {Kind::picker, Kind::segments});
    if (picker && offers(picker->choices, value))
        defaults_.set(id, std::string(value));
}

void SettingsPage::press(std::string_view id) {
    if (row(id, {Kind::action, Kind::place, Kind::found, Kind::search}))
        pressed(id);
}

void SettingsPage::type(std::string_view id, std::string_view text) {
    if (row(id, {Kind::search}))
        typed(text);
}

void SettingsPage::setOn(std::string_view id, bool on) {
    defaults_.set(id, on);
}

SettingsRow SettingsPage::toggleRow(std::string label, const SettingKey<bool>& key) const {
    SettingsRow row;
    row.kind = SettingsRow::Kind::toggle;
    row.id = key.name;
    row.label = std::move(label);
    row.isOn = defaults_.readableBoolean(key.name).value_or(key.defaultValue);
    return row;
}

SettingsRow SettingsPage::sliderRow(std::string label, const SettingKey<double>& key,
                                    SettingsRange range) const {
    const double stored = defaults_.readableNumber(key.name).value_or(key.defaultValue);
    SettingsRow row;
    row.kind = SettingsRow::Kind::slider;
    row.id = key.name;
    row.label = std::move(label);
    row.range = range;
    row.value = range.clamped(stored);
    return row;
}

SettingsRow SettingsPage::pickerRow(std::string label, const SettingKey<std::string_view>& key,
                                    std::vector<SettingsChoice> choices) const {
    const auto stored = defaults_.string(key.name);
    SettingsRow row;
    row.kind = SettingsRow::Kind::picker;
    row.id = key.name;
    row.label = std::move(label);
    row.choice = stored && offers(choices, *stored) ? *stored : std::string(key.defaultValue);
    row.choices = std::move(choices);
    return row;
}

SettingsRow SettingsPage::titleRow(std::string title) {
    SettingsRow row;
    row.kind = SettingsRow::Kind::title;
    row.id = "title:" + title;
    row.label = std::move(title);
    return row;
}

SettingsRow SettingsPage::gapRow(std::string id) {
    auto row = titleRow("");
    row.id = std::move(id);
    return row;
}

SettingsRow SettingsPage::footnoteRow(std::string id, std::string text) {
    SettingsRow row;
    row.kind = SettingsRow::Kind::footnote;
    row.id = std::move(id);
    row.label = std::move(text);
    return row;
}

SettingsRow SettingsPage::buttonRow(std::string id, std::string title) {
    SettingsRow row;
    row.kind = SettingsRow::Kind::action;
    row.id = std::move(id);
    row.button = std::move(title);
    return row;
}

SettingsRow SettingsPage::resetRow(std::string id, std::string title) {
    auto row = buttonRow(std::move(id), std::move(title));
    row.isDestructive = true;
    return row;
}

const SettingsRow* SettingsPage::row(std::string_view id, std::initializer_list<Kind> kinds) const {
    const auto& shown = rows.get();
    const auto found = std::find_if(shown.begin(), shown.end(), [&](const SettingsRow& candidate) {
        return candidate.id == id && std::ranges::count(kinds, candidate.kind) > 0;
    });
    return found == shown.end() ? nullptr : &*found;
}

} // namespace orvelle
