#pragma once

#include "Foundation/Date.h"

#include <string>

namespace orvelle {

/// The desktop around the program. Opening never runs what it is given: only `launch` starts
/// applications, and only those that are installed. What nothing here opens is logged once.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// Opens an address of the program's own with what the user has chosen for it: a page on the
    /// web, a mail, or a page of the desktop's settings. Other schemes are refused.
    virtual void open(const std::string& url) = 0;
    /// Opens the calendar application, at the day of this moment where it can be told one.
    virtual void openCalendar(Date day) = 0;
    /// Opens a page whose address came over the network; refuses all but "https".
    virtual void openFromNetwork(const std::string& url) = 0;
    /// Opens one of this machine's files or folders with what the user has chosen for its kind. An
    /// application's entry is shown in its folder instead. Comes back at once, on a slow disk too.
    virtual void openDocument(const std::string& fileUrl) = 0;
    /// Starts an installed application, or brings it to the front. Does nothing when none has this
    /// bundle identifier.
    virtual void launch(const std::string& bundleIdentifier) = 0;
};

} // namespace orvelle
