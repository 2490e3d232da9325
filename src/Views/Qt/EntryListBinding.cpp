#include "Views/Qt/EntryListBinding.h"

namespace orvelle {

static EntryRowValue toQt(const EntryList::Row& row) {
    return {
        .id = toQt(std::string_view(row.id.text())),
        .text = toQt(row.text),
        .isStruckThrough = row.isStruckThrough,
        .button = toQt(row.button),
        .isButtonFirst = row.buttonPlace == EntryList::ButtonPlace::beforeText,
        .help = toQt(row.help),
        .leading = toQt(row.leading),
        .trailing = toQt(row.trailing),
    };
}

void EntryListBinding::refresh() {
    show_prompt(orvelle::toQt(view_->prompt()));
    show_leadingDone(orvelle::toQt(view_->leadingDone()));
    show_emptyState(orvelle::toQt(view_->emptyState()));
    std::vector<EntryRowValue> values;
    for (const auto& row : view_->rows())
        values.push_back(toQt(row));
    rows_.show(values);
}

bool EntryListBinding::canAdd(const QString& text) const {
    return EntryList::canAdd(text.toStdString());
}

void EntryListBinding::add(const QString& text) {
    view_->add(text.toStdString());
}

void EntryListBinding::performLeading(const QString& id) {
    if (const auto known = UUID::parse(id.toStdString()))
        view_->performLeading(*known);
}

void EntryListBinding::performTrailing(const QString& id) {
    if (const auto known = UUID::parse(id.toStdString()))
        view_->performTrailing(*known);
}

MenuValue EntryListBinding::contextMenu() const {
    return {view_->contextMenu()};
}

} // namespace orvelle
