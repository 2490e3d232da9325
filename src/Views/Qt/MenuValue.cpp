#include "Views/Qt/MenuValue.h"

#include <algorithm>

namespace orvelle {

QStringList MenuValue::titles() const {
    QStringList titles;
    for (const auto& entry : entries)
        titles.append(QString::fromStdString(entry.title));
    return titles;
}

int MenuValue::checkedRow() const {
    const auto checked = std::find_if(entries.begin(), entries.end(),
                                      [](const MenuEntry& entry) { return entry.isChecked; });
    return checked == entries.end() ? -1 : static_cast<int>(checked - entries.begin());
}

void MenuValue::perform(int row) const {
    if (row >= 0 && row < static_cast<int>(entries.size()))
        entries[static_cast<std::size_t>(row)].perform();
}

} // namespace orvelle
