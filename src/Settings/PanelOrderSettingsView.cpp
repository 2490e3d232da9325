#include "Settings/PanelOrderSettingsView.h"

#include "Core/ListMove.h"
#include "Core/UndoOffer.h"
#include "Features/Theme/ThemeManager.h"
#include "Models/NotchState.h"
#include "Models/Symbol.h"
#include "Views/Components/FormLook.h"

namespace orvelle {

namespace {

constexpr double eyeSize = 13;

} // namespace

std::vector<PanelOrderSettingsView::PanelRow> PanelOrderSettingsView::rows() const {
    std::vector<PanelRow> rows;
    for (const auto& entry : manager_.allPanelsSorted())
        rows.push_back(panelRow(entry));
    return rows;
}

PanelOrderSettingsView::PanelRow
PanelOrderSettingsView::panelRow(const PanelOrderManager::PanelEntry& entry) const {
    const auto panel = activePanelFrom(entry.id);
    const bool isVisible = entry.isVisible;
    const auto color = isVisible ? FormLook::textColor : FormLook::secondaryColor;
    return {entry.id,
            {panel ? icon(*panel) : "questionmark"_symbol, FormLook::listTextSize,
             isVisible ? theme_.accentColor() : FormLook::secondaryColor},
            {panel ? std::string(label(*panel)) : entry.id,
             {FormLook::listTextSize, FontWeight::regular, color}},
            {isVisible ? "eye"_symbol : "eye.slash"_symbol, eyeSize, color},
            isVisible ? "Hide panel" : "Show panel",
            isVisible};
}

void PanelOrderSettingsView::move(std::size_t from, std::size_t to) {
    const auto count = manager_.panelOrder->size();
    if (from < count && to < count && from != to)
        manager_.reorder({from}, destination(from, to));
}

void PanelOrderSettingsView::toggleVisibility(std::string_view id) {
    manager_.toggleVisibility(id);
}

void PanelOrderSettingsView::reset() {
    const auto former = manager_.panelOrder.get();
    manager_.resetToDefaults();
    if (undo_)
        undo_->offer({"Panels reset", [&manager = manager_, former] { manager.restore(former); }});
}

} // namespace orvelle
