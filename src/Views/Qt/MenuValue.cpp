#include "Views/Qt/MenuValue.h"

namespace orvelle {

QStringList MenuValue::titles() const {
    QStringList titles;
    for (const auto& entry : entries)
        titles.append(QString::fromStdString(entry.title));
    return titles;
}

void MenuValue::perform(int row) const {
    if (row >= 0 && row < static_cast<int>(entries.size()))
        entries[static_cast<std::size_t>(row)].perform();
}

} // namespace orvelle
