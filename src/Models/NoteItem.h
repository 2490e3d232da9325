#pragma once

#include "Foundation/Date.h"
#include "Foundation/Json.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>

namespace orvelle {

struct NoteItem {
    UUID id;
    std::string text;
    Date createdAt;
    bool operator==(const NoteItem&) const = default;

    Json json() const;
    /// None unless every key is there, with its type.
    static std::optional<NoteItem> fromJson(const Json& json);
};

} // namespace orvelle
