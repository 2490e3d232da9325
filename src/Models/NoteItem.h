#pragma once

#include "Foundation/Date.h"
#include "Foundation/UUID.h"

#include <string>

namespace orvelle {

struct NoteItem {
    UUID id;
    std::string text;
    Date createdAt;
    bool operator==(const NoteItem&) const = default;
};

} // namespace orvelle
