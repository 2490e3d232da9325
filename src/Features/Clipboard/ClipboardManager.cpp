#include "Features/Clipboard/ClipboardManager.h"

#include "Foundation/Text.h"
#include "Models/Symbol.h"
#include "Platform/Pasteboard.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>

namespace orvelle {

ClipboardManager::ClipboardManager(Platform& platform)
    : FeatureModule("clipboard", "Clipboard", std::string("doc.on.clipboard"_symbol)),
      platform_(platform), search_(platform),
      searchFollows_(items.observe([this](const auto& list) { search_.follow(list); })) {}

void ClipboardManager::start() {
    if (!isEnabled)
        return;
    lastChangeCount = platform_.pasteboard().changeCount();
    pollTimer = platform_.runLoop().every(pollInterval, [this] { checkForChanges(); });
}

void ClipboardManager::checkForChanges() {
    const auto count = platform_.pasteboard().changeCount();
    if (count == lastChangeCount)
        return;
    lastChangeCount = count;
    // A reading that still waits for its owner's answer is overtaken by this one.
    reading_ = platform_.pasteboard().readString(
        [this, source = platform_.frontmostApplication().current()](auto text) {
            if (text)
                capture(*std::move(text), source);
        });
}

void ClipboardManager::capture(std::string text, const std::optional<ApplicationIdentity>& source) {
    if (!pollTimer || Text::trimmingBlanksAndNewlines(text).empty())
        return;
    auto list = items.get();
    if (!list.empty() && list.front().content == text)
        return;
    ClipboardItem item;
    item.id = UUID::random();
    item.timestamp = platform_.runLoop().now();
    item.contentType = detectContentType(text);
    item.content = std::move(text);
    if (source) {
        item.sourceAppBundleID = source->bundleIdentifier;
        item.sourceAppName = source->localizedName.value_or(item.sourceAppName);
    }
    list.insert(list.begin(), std::move(item));
    if (list.size() > maximumItems)
        list.resize(maximumItems);
    pruneExpiredItems(list);
    items = std::move(list);
}

void ClipboardManager::pruneExpiredItems(std::vector<ClipboardItem>& list) const {
    const double stored = platform_.userDefaults().number(Settings::clipboardMaxAgeHours.name);
    const double hours = stored > 0 ? stored : defaultMaximumAge;
    const Date cutOff = platform_.runLoop().now() + -hours * 3600;
    std::erase_if(list, [&](const ClipboardItem& item) { return item.timestamp < cutOff; });
}

void ClipboardManager::copyToClipboard(const ClipboardItem& item) {
    const auto copied = item; // the list that may hold it is about to change
    platform_.pasteboard().setString(copied.content);
    lastChangeCount = platform_.pasteboard().changeCount();
    auto list = items.get();
    const auto found = std::find(list.begin(), list.end(), copied);
    if (found == list.end())
        return;
    std::rotate(list.begin(), found, std::next(found));
    items = std::move(list);
}

std::vector<ClipboardItem> ClipboardManager::itemsContaining(std::string_view text) {
    auto found = items.get();
    if (text.empty())
        return found;
    const auto wanted = search_.prepared(text);
    std::erase_if(found,
                  [&](const ClipboardItem& item) { return !search_.contains(item, wanted); });
    return found;
}

void ClipboardManager::deleteItem(const ClipboardItem& item) {
    items.update([id = item.id](auto& list) {
        std::erase_if(list, [&](const ClipboardItem& each) { return each.id == id; });
    });
}

void ClipboardManager::restore(const RemovedRecords<ClipboardItem>& removed) {
    items.update([&](auto& list) {
        removed.restoreTo(list, NewRecords::first);
        if (list.size() > maximumItems)
            list.resize(maximumItems);
    });
}

} // namespace orvelle
