#pragma once

#include <string>

namespace orvelle {

/// The desktop around the program.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// Opens an address with what the user has chosen for it. An address that nothing here can
    /// open does nothing and is logged once.
    virtual void open(const std::string& url) = 0;
};

} // namespace orvelle
