#pragma once

#include "Platform/UserDefaults.h"
#include "Settings/Setting.h"

namespace orvelle {

/// Which figures of the machine the user wants to see, in the hover bar and in the panel.
struct SystemMonitorModules {
    explicit SystemMonitorModules(UserDefaults& defaults);

    Setting<bool> showCPU;
    Setting<bool> showMemory;
    Setting<bool> showNetwork;
    Setting<bool> showTemperature;
};

} // namespace orvelle
