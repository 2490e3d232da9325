#pragma once

#include <sys/types.h>

#include <string>

namespace orvelle {

inline constexpr mode_t privateFolderMode = 0700;

/// Makes a folder for the user alone, and those above it; true when it is there. Any thread.
bool makePrivateFolder(const std::string& path);

} // namespace orvelle
