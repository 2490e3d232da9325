#pragma once

#include "Platform/FileWatch.h"

namespace orvelle {

/// Watches through the kernel's inotify and the Qt event loop. Follows a symbolic link to a file in
/// another folder as well, and a folder that is made later.
class InotifyFileWatch : public FileWatch {
public:
    Subscription watch(const std::string& path, std::function<void()> changed) override;
};

} // namespace orvelle
