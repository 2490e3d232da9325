#include "Core/PanelOrderManager.h"

#include "Core/ListMove.h"
#include "Core/StoredList.h"
#include "Settings/SettingsKeys.h"

namespace orvelle {

namespace {

using PanelEntry = PanelOrderManager::PanelEntry;

std::optional<PanelEntry> decodeEntry(const Json& element) {
    const auto id = element.member("id").string();
    const auto sortOrder = element.member("sortOrder").integer();
    const auto isVisible = element.member("isVisible").boolean();
    if (!id || !sortOrder || !isVisible)
        return std::nullopt;
    return PanelEntry{*id, *sortOrder, *isVisible};
}

Json encodeEntry(const PanelEntry& entry) {
    return Json::Object{
        {"id", entry.id}, {"sortOrder", entry.sortOrder}, {"isVisible", entry.isVisible}};
}

} // namespace

const std::vector<PanelEntry>& PanelOrderManager::defaultOrder() {
    static const auto order = [] {
        std::vector<PanelEntry> entries;
        for (const auto panel : allActivePanels)
            if (panel != ActivePanel::settings)
                entries.push_back({std::string(rawValue(panel)),
                                   static_cast<std::int64_t>(entries.size()), true});
        return entries;
    }();
    return order;
}

PanelOrderManager::PanelOrderManager(Platform& platform) : platform_(platform) {
    loadOrder();
}

std::vector<ActivePanel> PanelOrderManager::visiblePanels() const {
    std::vector<ActivePanel> panels;
    for (const auto& entry : allPanelsSorted())
        if (const auto panel = activePanelFrom(entry.id); entry.isVisible && panel)
            panels.push_back(*panel);
    return panels;
}

std::vector<PanelEntry> PanelOrderManager::allPanelsSorted() const {
    return sortedByOrder(panelOrder.get());
}

void PanelOrderManager::toggleVisibility(std::string_view id) {
    auto order = panelOrder.get();
    if (!toggleVisible(order, id))
        return;
    panelOrder = std::move(order);
    saveOrder();
}

void PanelOrderManager::reorder(const std::set<std::size_t>& from, std::size_t to) {
    auto rows = allPanelsSorted();
    moveRows(rows, from, to);
    panelOrder.update([&](auto& order) { renumber(order, rows); });
    saveOrder();
}

void PanelOrderManager::restore(std::vector<PanelEntry> former) {
    panelOrder = std::move(former);
    saveOrder();
}

void PanelOrderManager::resetToDefaults() {
    panelOrder = defaultOrder();
    saveOrder();
}

void PanelOrderManager::loadOrder() {
    auto stored = loadStoredList<PanelEntry>(platform_.userDefaults(), Settings::panelTabBarOrder,
                                             decodeEntry);
    if (!stored) {
        panelOrder = defaultOrder();
        return;
    }
    mergeDefaults(*stored, defaultOrder());
    panelOrder = std::move(*stored);
}

void PanelOrderManager::saveOrder() {
    saveStoredList(platform_.userDefaults(), Settings::panelTabBarOrder, panelOrder.get(),
                   encodeEntry);
}

} // namespace orvelle
