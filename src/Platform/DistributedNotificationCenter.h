#pragma once

#include "Foundation/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace orvelle {

using NotificationValue = std::variant<bool, std::int64_t, double, std::string>;

/// Details by key; a value of any type may stand under any key.
using NotificationUserInfo = std::map<std::string, NotificationValue, std::less<>>;

/// Messages that applications spread to whoever listens. Main thread only.
class DistributedNotificationCenter {
public:
    /// Called with none for a message without details.
    using Handler = std::function<void(const std::optional<NotificationUserInfo>& userInfo)>;

    virtual ~DistributedNotificationCenter() = default;

    [[nodiscard]] virtual Subscription observe(std::string_view name, Handler handler) = 0;
};

} // namespace orvelle
