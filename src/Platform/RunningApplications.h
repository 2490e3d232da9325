#pragma once

#include <string>

namespace orvelle {

/// The applications that run in the user's session.
class RunningApplications {
public:
    virtual ~RunningApplications() = default;

    /// Whether an application of that bundle identifier runs, such as "com.spotify.client". Answers
    /// from what is known, without waiting. Any thread.
    virtual bool isRunning(const std::string& bundleIdentifier) const = 0;
};

} // namespace orvelle
