#pragma once

#include "Foundation/Date.h"
#include "Foundation/Json.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>

namespace orvelle {

struct TodoItem {
    UUID id;
    std::string title;
    bool isCompleted = false;
    Date createdAt;
    bool operator==(const TodoItem&) const = default;

    Json json() const;
    /// None unless every key is there, with its type.
    static std::optional<TodoItem> fromJson(const Json& json);
};

} // namespace orvelle
