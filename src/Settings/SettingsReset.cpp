#include "Settings/SettingsReset.h"

#include <map>
#include <optional>
#include <utility>

namespace orvelle {

namespace {

using Values = std::map<std::string, DefaultsValue>;

Values valuesOf(const UserDefaults& defaults) {
    Values values;
    for (const auto& key : defaults.keys())
        if (auto value = defaults.object(key))
            values.emplace(key, *std::move(value));
    return values;
}

std::optional<DefaultsValue> valueIn(const Values& values, const std::string& key) {
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

void resetWithUndo(UserDefaults& defaults, UndoOffer* undo, std::string text,
                   const std::function<void()>& reset, std::function<void()> undone) {
    if (!undo)
        return reset();
    const auto before = valuesOf(defaults);
    reset();
    auto after = valuesOf(defaults);
    std::erase_if(after, [&](const auto& entry) {
        return valueIn(before, entry.first) == std::optional(entry.second);
    });
    undo->offer({std::move(text), [&defaults, before, after, undone = std::move(undone)] {
                     for (const auto& [key, value] : after) {
                         if (defaults.object(key) != std::optional(value))
                             continue;
                         if (const auto former = valueIn(before, key))
                             defaults.set(key, *former);
                         else
                             defaults.remove(key);
                     }
                     if (undone)
                         undone();
                 }});
}

} // namespace orvelle
