#pragma once

#include "Models/TodoItem.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <vector>

namespace orvelle {

/// A checklist.
class TodoManager : public FeatureModule {
public:
    explicit TodoManager(Platform& platform = Platform::shared());

    Published<std::vector<TodoItem>> items;
};

} // namespace orvelle
