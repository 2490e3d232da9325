#pragma once

#include "Foundation/Date.h"
#include "Foundation/UUID.h"

#include <string>

namespace orvelle {

struct TodoItem {
    UUID id;
    std::string title;
    bool isCompleted = false;
    Date createdAt;
    bool operator==(const TodoItem&) const = default;
};

} // namespace orvelle
