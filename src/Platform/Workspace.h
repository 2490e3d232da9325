#pragma once

#include <optional>
#include <string>

namespace orvelle {

/// The desktop around the program.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// Opens an address with what the user has chosen for it; the address of an application starts
    /// that application, or brings it to the front. An address that nothing here can open does
    /// nothing and is logged once.
    virtual void open(const std::string& url) = 0;
    /// Where an application is installed, by its bundle identifier; none without such a one.
    virtual std::optional<std::string> applicationUrl(const std::string& bundleIdentifier) = 0;
};

} // namespace orvelle
