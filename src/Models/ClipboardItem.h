#pragma once

#include "Foundation/Date.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>

namespace orvelle {

enum class ClipboardContentType { text, url, email, code, number };

/// A text that was copied.
struct ClipboardItem {
    UUID id;
    std::string content; ///< as it stands, surrounding white space kept
    std::optional<std::string> sourceAppBundleID;
    std::string sourceAppName = "Unknown";
    Date timestamp;
    ClipboardContentType contentType = ClipboardContentType::text;
    bool operator==(const ClipboardItem&) const = default;
};

} // namespace orvelle
