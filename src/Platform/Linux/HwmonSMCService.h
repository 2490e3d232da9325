#pragma once

#include "Platform/SMCService.h"

#include <string>

namespace orvelle {

/// Answers for the management controller from the kernel's hardware monitors. The processor's
/// sensor stands under the keys of its proximity and its die, "TC0P" and "TC0D", in the type
/// "sp78"; all other keys have the data size 0. `open()` is null while there is no such sensor.
///
/// The sensor is the first input of the best driver found: the processor's own ones before the
/// firmware's thermal zone. It is looked for again when it can no longer be read.
class HwmonSMCService : public SMCService {
public:
    explicit HwmonSMCService(std::string root = "/sys/class/hwmon");

    std::unique_ptr<SMCConnection> open() override;

private:
    std::string root_;
    std::string sensor_; ///< path of the input; empty while none is known
};

} // namespace orvelle
