#include "Views/Qt/MenuValue.h"

#include "Views/Qt/Values.h"

namespace orvelle {

QVariantList MenuValue::lines() const {
    QVariantList lines;
    for (const auto& entry : entries)
        lines.append(
            QVariant::fromValue(MenuLineValue{toQt(std::string_view(entry.title)), entry.isChecked,
                                              entry.isDestructive, entry.followsDivider}));
    return lines;
}

MenuValue MenuValue::followedBy(const MenuValue& other) const {
    MenuValue joined = *this;
    for (const auto& entry : other.entries) {
        joined.entries.push_back(entry);
        if (&entry == &other.entries.front() && !entries.empty())
            joined.entries.back().followsDivider = true;
    }
    return joined;
}

void MenuValue::perform(int row) const {
    if (row >= 0 && row < static_cast<int>(entries.size()))
        entries[static_cast<std::size_t>(row)].perform();
}

} // namespace orvelle
