#include "Views/Components/EntryList.h"

#include "Foundation/Text.h"

#include <utility>

namespace orvelle {

bool EntryList::canAdd(std::string_view text) {
    return !Text::trimmingBlanks(text).empty();
}

FilePlaceholder EntryList::emptyState(std::string title, std::string_view symbol) {
    return {{symbol, 24, notchTertiary},
            {std::move(title), {12, FontWeight::regular, notchTertiary}}};
}

SwipeAction EntryList::deleteAction() {
    return {"Delete", "trash.fill"_symbol, colors::red};
}

} // namespace orvelle
