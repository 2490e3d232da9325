#pragma once

#include "Core/UndoOffer.h"
#include "Foundation/UUID.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace orvelle {

enum class NewRecords { first, last };

/// What was taken out of a list, and where it stood there.
template <class Record>
struct RemovedRecords {
    std::vector<Record> records;   ///< in their order
    std::vector<UUID> formerOrder; ///< of the whole list

    static RemovedRecords between(const std::vector<Record>& before,
                                  const std::vector<Record>& after) {
        const auto kept = idsOf(after);
        RemovedRecords removed;
        for (const auto& record : before) {
            removed.formerOrder.push_back(record.id);
            if (!kept.contains(record.id))
                removed.records.push_back(record);
        }
        return removed;
    }

    /// Puts each record back behind the nearest of those before it that are still there, or else
    /// before the nearest behind it. Of a list that is another one altogether, `newest` tells where
    /// its records belong. A record that is there again stays as it is.
    void restoreTo(std::vector<Record>& list, NewRecords newest) const {
        const auto present = idsOf(list);
        std::map<UUID, std::vector<Record>> following; // by the record before them
        std::vector<Record> leading;
        std::optional<UUID> first; // of those that are still there
        std::optional<UUID> before;
        auto next = records.begin();
        for (const auto& id : formerOrder) {
            const bool isThere = present.contains(id);
            if (isThere) {
                first = first.value_or(id);
                before = id;
            }
            if (next == records.end() || next->id != id)
                continue;
            if (!isThere)
                (before ? following[*before] : leading).push_back(*next);
            ++next;
        }

        std::vector<Record> restored;
        const auto append = [&restored](std::vector<Record>& some) {
            restored.insert(restored.end(), some.begin(), some.end());
            some.clear(); // where an identifier stands twice
        };
        if (!first && newest == NewRecords::last)
            append(leading);
        for (auto& record : list) {
            if (first == record.id)
                append(leading);
            auto& behind = following[record.id];
            restored.push_back(std::move(record));
            append(behind);
        }
        append(leading);
        list = std::move(restored);
    }

private:
    static std::set<UUID> idsOf(const std::vector<Record>& list) {
        std::set<UUID> ids;
        for (const auto& record : list)
            ids.insert(record.id);
        return ids;
    }
};

/// Takes records out of a manager's list, and offers them back where there is an `undo`.
template <class Manager, class Take>
void removeWithUndo(UndoOffer* undo, Manager& manager, std::string text, Take take) {
    using List = std::remove_cvref_t<decltype(manager.items.get())>;
    using Removed = RemovedRecords<typename List::value_type>;
    const auto before = manager.items.get();
    take();
    auto removed = Removed::between(before, manager.items.get());
    if (!undo || removed.records.empty())
        return;
    undo->offer(
        {std::move(text), [&manager, removed = std::move(removed)] { manager.restore(removed); }});
}

} // namespace orvelle
