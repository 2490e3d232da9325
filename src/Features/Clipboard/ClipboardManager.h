#pragma once

#include "Models/ClipboardItem.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <vector>

namespace orvelle {

/// The texts that were copied, kept in memory only.
class ClipboardManager : public FeatureModule {
public:
    explicit ClipboardManager(Platform& platform = Platform::shared());

    Published<std::vector<ClipboardItem>> items; ///< newest first
    Timer pollTimer;
};

} // namespace orvelle
