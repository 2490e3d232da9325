#include "Platform/Simulated/SimulatedUserDefaults.h"

namespace orvelle {

std::optional<DefaultsValue> SimulatedUserDefaults::object(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end())
        return std::nullopt;
    return found->second;
}

std::vector<std::string> SimulatedUserDefaults::keys() const {
    std::vector<std::string> names;
    for (const auto& [name, value] : values_)
        names.push_back(name);
    return names;
}

void SimulatedUserDefaults::set(std::string_view key, DefaultsValue value) {
    values_.insert_or_assign(std::string(key), std::move(value));
    ++writeCount_;
    changed_();
}

void SimulatedUserDefaults::remove(std::string_view key) {
    const auto found = values_.find(key);
    if (found == values_.end())
        return;
    values_.erase(found);
    ++writeCount_;
    changed_();
}

Subscription SimulatedUserDefaults::observeChanges(std::function<void()> changed) {
    return changed_.observe(std::move(changed));
}

} // namespace orvelle
