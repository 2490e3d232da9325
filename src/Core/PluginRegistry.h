#pragma once

#include "Foundation/Published.h"
#include "Protocols/PluginProtocol.h"

#include <memory>
#include <vector>

namespace orvelle {

/// The place where plug-ins will register; nothing adds to it yet.
class PluginRegistry {
public:
    Published<std::vector<std::shared_ptr<NotchPlugin>>> registeredPlugins;
};

} // namespace orvelle
