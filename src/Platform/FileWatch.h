#pragma once

#include "Foundation/Subscription.h"

#include <functional>
#include <string>

namespace orvelle {

/// Tells of changes to a file that others may write. Main thread only.
class FileWatch {
public:
    virtual ~FileWatch() = default;

    /// Calls `changed` after a writer has closed the file, or it was replaced, made or removed, by
    /// any process, this one included; several changes in a row may give one call. Neither the file
    /// nor its folder need exist. Empty when the system cannot watch.
    [[nodiscard]] virtual Subscription watch(const std::string& path,
                                             std::function<void()> changed) = 0;
};

} // namespace orvelle
