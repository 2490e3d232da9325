#include "Features/Clipboard/ClipboardHistoryBinding.h"

#include "Features/Clipboard/ClipboardManager.h"

namespace orvelle {

static ClipboardRowValue toQt(const ClipboardHistoryView::ClipboardItemRow& row) {
    QVariantList details;
    for (const auto& text : row.details)
        details.append(QVariant::fromValue(toQt(text)));
    return {
        .id = toQt(std::string_view(row.id.text())),
        .type = toQt(row.type),
        .preview = toQt(row.preview),
        .details = details,
        .copyButton = toQt(row.copyButton),
        .deleteButton = toQt(row.deleteButton),
    };
}

void ClipboardHistoryBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.clipboardManager;
    view_.emplace(manager, environment.platform, &environment.notch.undo);
    follow(manager.items);
}

void ClipboardHistoryBinding::refresh() {
    show_searchSymbol(orvelle::toQt(view_->searchSymbol()));
    show_emptyState(orvelle::toQt(view_->emptyStateView()));
    std::vector<ClipboardRowValue> values;
    for (const auto& row : view_->rows())
        values.push_back(toQt(row));
    rows_.show(values);
}

void ClipboardHistoryBinding::search(const QString& text) {
    view_->searchText = text.toStdString();
    refresh();
}

void ClipboardHistoryBinding::copy(const QString& id) {
    if (const auto known = UUID::parse(id.toStdString()))
        view_->copy(*known);
}

void ClipboardHistoryBinding::remove(const QString& id) {
    if (const auto known = UUID::parse(id.toStdString()))
        view_->remove(*known);
}

} // namespace orvelle
