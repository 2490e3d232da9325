#pragma once

#include "Platform/FileSystem.h"

#include <string>

namespace orvelle {

/// Waits for the lock of a file's folder among other writers of the file. It may pass by for long:
/// only a holder that writes nothing for `patience` counts as hung. An empty handle then, and on a
/// file system without locks. Reads the file up to `limit` bytes.
[[nodiscard]] Subscription lockAmongWriters(FileSystem& fileSystem, const std::string& path,
                                            std::size_t limit, Seconds patience);

} // namespace orvelle
