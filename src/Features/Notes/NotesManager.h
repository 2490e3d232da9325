#pragma once

#include "Core/ListFile.h"
#include "Core/RemovedRecords.h"
#include "Models/NoteItem.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// A list of short notes, kept in the file "note_items.json". Each change is saved at once.
class NotesManager : public FeatureModule {
public:
    /// Loads the list.
    explicit NotesManager(Platform& platform = Platform::shared());

    Published<std::vector<NoteItem>> items; ///< the newest first

    /// Without the blanks at both ends; nothing when nothing is left.
    void addItem(std::string_view text);
    /// The item with the same identifier.
    void removeItem(const NoteItem& item);
    void restore(const RemovedRecords<NoteItem>& removed);
    void clear();

private:
    void loadItems();
    void saveItems();

    Platform& platform_;
    Logger log_;
    ListFile<NoteItem> file_;
};

} // namespace orvelle
