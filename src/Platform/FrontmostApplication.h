#pragma once

#include <optional>
#include <string>

namespace orvelle {

/// A program as the desktop knows it.
struct ApplicationIdentity {
    std::optional<std::string> bundleIdentifier; ///< such as "org.gnome.TextEditor"
    std::optional<std::string> localizedName;    ///< in the user's language
    bool operator==(const ApplicationIdentity&) const = default;
};

/// The program that the user works in.
class FrontmostApplication {
public:
    virtual ~FrontmostApplication() = default;
    /// None while the desktop itself is in front.
    virtual std::optional<ApplicationIdentity> current() = 0;
};

} // namespace orvelle
