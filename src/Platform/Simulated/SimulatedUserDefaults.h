#pragma once

#include "Foundation/Published.h"
#include "Platform/UserDefaults.h"

#include <map>

namespace orvelle {

/// Settings in memory only.
class SimulatedUserDefaults : public UserDefaults {
public:
    std::optional<DefaultsValue> object(std::string_view key) const override;
    std::vector<std::string> keys() const override;
    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;
    Subscription observeChanges(std::function<void()> changed) override;

    int writeCount() const { return writeCount_; }

private:
    std::map<std::string, DefaultsValue, std::less<>> values_;
    Event<> changed_;
    int writeCount_ = 0;
};

} // namespace orvelle
