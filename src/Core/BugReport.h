#pragma once

#include <string>

namespace orvelle {

/// A mail to the maker, begun with what is known of the machine. Names nobody and nothing else.
struct BugReport {
    std::string operatingSystemVersion; ///< for people
    std::string architecture;

    std::string body() const;
    /// Opens the user's mail program with the mail filled in.
    std::string mailAddress() const;
};

} // namespace orvelle
