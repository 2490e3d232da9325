#pragma once

#include "Platform/FrontmostApplication.h"

#include <xcb/xcb.h>

#include <map>
#include <string>
#include <vector>

namespace orvelle {

/// The program of the window that the window manager calls active, or without one of the window
/// that has the keyboard. Its name and identifier are those of its desktop entry; a program without
/// an entry has the name that its windows bear. Entries are looked for once for each program.
class X11FrontmostApplication : public FrontmostApplication {
public:
    std::optional<ApplicationIdentity> current() override;

private:
    std::map<std::vector<std::string>, ApplicationIdentity> known_;
};

} // namespace orvelle
