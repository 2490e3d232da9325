#pragma once

#include <string>
#include <vector>

namespace orvelle {

/// Whether the program stands beside the desktop or counts as an ordinary application, with what
/// that means for focus and task lists.
enum class ActivationPolicy { accessory, regular };

struct OperatingSystemVersion {
    long major = 0;
    long minor = 0;
    long patch = 0;
};

struct Alert {
    std::string messageText;
    std::string informativeText;
    /// Left to right as the platform orders them; the first is the default.
    std::vector<std::string> buttons;
};

/// The process as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    virtual OperatingSystemVersion operatingSystemVersion() const = 0;
    /// For people, such as "Debian GNU/Linux 12 (bookworm)".
    virtual std::string operatingSystemVersionString() const = 0;
    /// "arm64" on Arm, else the machine's own name for itself.
    virtual std::string architecture() const = 0;

    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    /// Shows a warning and waits for the answer while events go on; gives the pressed button's
    /// index, or the last one's when the alert was closed otherwise.
    virtual std::size_t runModal(const Alert& alert) = 0;
    /// Ends the main loop after the present event; the program stops its features on the way out.
    virtual void terminate() = 0;
};

} // namespace orvelle
