#include "Features/FileShelf/FileShelfManager.h"

#include "Models/Symbol.h"

#include <algorithm>

namespace orvelle {

FileShelfManager::FileShelfManager(Platform& platform)
    : FeatureModule("fileShelf", "File Shelf", std::string("tray.fill"_symbol)),
      platform_(platform) {}

void FileShelfManager::start() {
    if (!isEnabled)
        return;
    cleanupTimer = platform_.runLoop().every(cleanupInterval, [this] { cleanupExpired(); });
    cleanupExpired();
}

void FileShelfManager::cleanupExpired() {
    const auto now = platform_.runLoop().now();
    const auto expired = [now](const ShelfItem& item) { return item.expiresAt <= now; };
    if (std::any_of(items->begin(), items->end(), expired))
        items.update([&](auto& list) { std::erase_if(list, expired); });
}

} // namespace orvelle
