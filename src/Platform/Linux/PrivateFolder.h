#pragma once

#include <sys/types.h>

#include <string>

namespace orvelle {

inline constexpr mode_t privateFolderMode = 0700;

/// Makes a folder for the user alone, and those above it, durably; true when it is there, or else
/// errno tells why. Any thread.
bool makePrivateFolder(const std::string& path);

/// Makes durable what was made, renamed or removed in a folder. 0 or an error's number; some file
/// systems cannot, which is no error.
int syncFolder(const std::string& path);

} // namespace orvelle
