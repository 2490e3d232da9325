#pragma once

#include "Core/ListFile.h"
#include "Core/RemovedRecords.h"
#include "Models/TodoItem.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// A checklist, kept in the file "todo_items.json". Each change is saved at once.
class TodoManager : public FeatureModule {
public:
    /// Loads the list.
    explicit TodoManager(Platform& platform = Platform::shared());

    Published<std::vector<TodoItem>> items; ///< the oldest first

    /// Without the blanks at both ends; nothing when nothing is left.
    void addItem(std::string_view title);
    /// The item with the same identifier; nothing when there is none.
    void toggleItem(const TodoItem& item);
    void removeItem(const TodoItem& item);
    void restore(const RemovedRecords<TodoItem>& removed);
    /// Saves even when nothing was completed.
    void clearCompleted();

private:
    void loadItems();
    void saveItems();

    Platform& platform_;
    Logger log_;
    ListFile<TodoItem> file_;
};

} // namespace orvelle
