#pragma once

#include "Foundation/Date.h"
#include "Foundation/SharedText.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

enum class ClipboardContentType { text, url, email, code, number };

/// What kind of text this is, by the first test that holds: an address with "://"; anything with
/// "@" and "." and no space; a number as the C locale writes it; signs of source code.
ClipboardContentType detectContentType(std::string_view text);

/// A text that was copied.
struct ClipboardItem {
    UUID id;
    SharedText content; ///< as it stands, surrounding white space kept
    std::optional<std::string> sourceAppBundleID;
    std::string sourceAppName = "Unknown";
    Date timestamp;
    ClipboardContentType contentType = ClipboardContentType::text;
    bool operator==(const ClipboardItem&) const = default;

    /// Without the white space at both ends; of more than 100 characters the first 100 and "...".
    std::string preview() const;
};

} // namespace orvelle
