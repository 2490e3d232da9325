#pragma once

#include "Platform/DisplayBrightness.h"

#include <string>

namespace orvelle {

/// The kernel's backlights. Where several drive the same screen, that of the firmware comes last,
/// before it that of the platform, and before that the bare hardware.
class SysfsDisplayBrightness : public DisplayBrightness {
public:
    explicit SysfsDisplayBrightness(std::string root = "/sys/class/backlight")
        : root_(std::move(root)) {}

    std::optional<std::vector<std::optional<float>>> levels() override;

private:
    std::string root_;
};

} // namespace orvelle
