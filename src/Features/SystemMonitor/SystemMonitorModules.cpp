#include "Features/SystemMonitor/SystemMonitorModules.h"

namespace orvelle {

SystemMonitorModules::SystemMonitorModules(UserDefaults& defaults)
    : showCPU(defaults, Settings::sysMonCPU), showMemory(defaults, Settings::sysMonMemory),
      showNetwork(defaults, Settings::sysMonNetwork),
      showTemperature(defaults, Settings::sysMonTemperature) {}

} // namespace orvelle
