#pragma once

#include "Platform/FrontmostApplication.h"

#include <QString>

#include <string>
#include <vector>

namespace orvelle {

/// The first of these names that is an installed desktop entry, with the entry's name in the user's
/// language; else the last of them as a bare name. Names are without the suffix ".desktop".
ApplicationIdentity desktopEntryNamed(const std::vector<std::string>& names);

/// The file of the installed desktop entry of this name, without its suffix; empty when there is
/// none. Names may come from other programs, and lead to no file elsewhere.
QString installedDesktopEntry(const std::string& name);

/// Whether a desktop may take this file for the entry of an application, by its name or its
/// content. Reads the file.
bool isDesktopEntry(const std::string& path);

/// What an entry's file tells of starting its program.
struct DesktopEntryTraits {
    std::string windowClass;         ///< of its windows; empty when it does not tell
    bool startsNoSecondCopy = false; ///< starting it while it runs brings it to the front
};
DesktopEntryTraits desktopEntryTraits(const std::string& path);

} // namespace orvelle
