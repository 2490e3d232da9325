#pragma once

#include "Foundation/JsonRecord.h"

#include <string>
#include <string_view>

namespace orvelle {

/// What the maker's site says about the latest release.
struct VersionManifest {
    std::string version; ///< numbers between dots
    std::string build;   ///< not used
    std::string url;     ///< absolute, or relative to the site's root
    std::string notes;

    static Decoded<VersionManifest> decode(std::string_view body);
};

/// Whether the version `candidate` is above `reference`. Pieces between dots that are no numbers do
/// not count, and missing ones are 0: "1.0" and "1.0.0" are the same.
bool isNewerVersion(std::string_view candidate, std::string_view reference);

} // namespace orvelle
