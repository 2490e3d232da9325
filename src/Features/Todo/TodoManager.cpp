#include "Features/Todo/TodoManager.h"

#include "Foundation/Text.h"
#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

#include <algorithm>

namespace orvelle {

TodoManager::TodoManager(Platform& platform)
    : FeatureModule("todo", "Todo", std::string("checklist"_symbol)), platform_(platform),
      log_(platform.log(), "TodoManager"),
      file_(platform, "todo_items.json", {&TodoItem::fromJson, &TodoItem::json, "id"},
            {[this](std::vector<TodoItem> merged) { items = std::move(merged); },
             [this](const std::string& reason) {
                 log_.error("Failed to save todo items: " + reason);
             }}) {
    loadItems();
}

void TodoManager::addItem(std::string_view title) {
    const auto trimmed = Text::trimmingBlanks(title);
    if (trimmed.empty())
        return;
    items.update([&](auto& list) {
        list.push_back({UUID::random(), std::string(trimmed), false, platform_.runLoop().now()});
    });
    saveItems();
}

void TodoManager::toggleItem(const TodoItem& item) {
    auto list = items.get();
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const TodoItem& each) { return each.id == item.id; });
    if (found == list.end())
        return;
    found->isCompleted = !found->isCompleted;
    items = std::move(list);
    saveItems();
}

void TodoManager::removeItem(const TodoItem& item) {
    items.update([id = item.id](auto& list) {
        std::erase_if(list, [&](const TodoItem& each) { return each.id == id; });
    });
    saveItems();
}

void TodoManager::restore(const RemovedRecords<TodoItem>& removed) {
    items.update([&](auto& list) { removed.restoreTo(list, NewRecords::last); });
    saveItems();
}

void TodoManager::clearCompleted() {
    items.update([](auto& list) {
        std::erase_if(list, [](const TodoItem& each) { return each.isCompleted; });
    });
    saveItems();
}

void TodoManager::loadItems() {
    auto loading = file_.load();
    if (!loading.problem.empty())
        log_.error("Failed to load todo items: " + loading.problem);
    else
        items = std::move(loading.records);
}

void TodoManager::saveItems() {
    file_.save(items.get());
}

} // namespace orvelle
