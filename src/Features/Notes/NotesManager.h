#pragma once

#include "Models/NoteItem.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <vector>

namespace orvelle {

/// A list of short notes.
class NotesManager : public FeatureModule {
public:
    explicit NotesManager(Platform& platform = Platform::shared());

    Published<std::vector<NoteItem>> items;
};

} // namespace orvelle
