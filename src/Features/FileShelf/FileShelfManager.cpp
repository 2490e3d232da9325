#include "Features/FileShelf/FileShelfManager.h"

#include "Features/FileShelf/FileShelfView.h"
#include "Features/FileShelf/ShelfItemMetadata.h"
#include "Foundation/FileURL.h"
#include "Foundation/Utf8.h"
#include "Models/Symbol.h"
#include "Platform/Console.h"
#include "Platform/FileCopier.h"
#include "Platform/FileSystem.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace orvelle {

namespace {

constexpr const char* folderName = "FileShelf";
constexpr std::string_view metadataName = ".shelf_metadata.json";

/// What a copy is called: names go into texts, and not every file's name is one.
std::string shelfName(const std::string& sourcePath) {
    return wellFormedUtf8(FileURL::lastPathComponent(sourcePath), '_');
}

bool isUsable(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name != FileCopier::stagingName &&
           !name.starts_with(metadataName); // nor what is kept aside of it
}

} // namespace

FileShelfManager::FileShelfManager(Platform& platform)
    : FeatureModule("fileShelf", "File Shelf", std::string("tray.fill"_symbol)),
      storageDirectory(platform.fileSystem().applicationSupportDirectory() + "/Orvelle/" +
                       folderName),
      metadataURL(storageDirectory + "/" + std::string(metadataName)), platform_(platform),
      metadata_(platform, std::string(folderName) + "/" + std::string(metadataName),
                [&console = platform.console()](const std::string& reason) {
                    console.print("FileShelfManager: Failed to save metadata: " + reason);
                }) {
    platform.fileCopier().makeFolder(storageDirectory);
    loadMetadata();
}

void FileShelfManager::start() {
    if (!isEnabled)
        return;
    cleanupTimer = platform_.runLoop().every(cleanupInterval, [this] { cleanupExpired(); });
    cleanupExpired();
}

void FileShelfManager::addFile(const std::string& url) {
    diskTasks_.add(
        [this, url](const std::function<void()>& finished) { return beginCopy(url, finished); });
}

Subscription FileShelfManager::beginCopy(const std::string& url,
                                         const std::function<void()>& finished) {
    if (items->size() >= maximumItems)
        return {};
    const auto source = FileURL::path(url);
    const auto name = source ? shelfName(*source) : "";
    if (!isUsable(name)) {
        reportFailure("The file's name cannot be used.");
        return {};
    }
    struct Copy {
        std::atomic<bool> isCancelled{false};
        FileCopier::Outcome outcome;
    };
    const auto copy = std::make_shared<Copy>();
    auto& copier = platform_.fileCopier();
    const auto destination = storageDirectory + "/" + name;
    auto work = [&copier, copy, source = *source, folder = storageDirectory, name, destination] {
        copy->outcome = copier.copy(source, folder, name, copy->isCancelled);
        if (!copy->outcome.failure && copy->outcome.info.size <= 0)
            copier.remove(destination);
    };
    auto done = [this, copy, destination, finished] {
        copied(destination, copy->outcome.failure, copy->outcome.info.size);
        finished();
    };
    auto running = std::make_shared<Subscription>(
        platform_.runLoop().detach(std::move(work), std::move(done)));
    return Subscription([copy, running] {
        copy->isCancelled = true;
        running->reset();
    });
}

void FileShelfManager::copied(const std::string& path, const std::optional<std::string>& failure,
                              std::int64_t size) {
    if (failure)
        return reportFailure(*failure);
    if (size <= 0)
        return platform_.console().print("FileShelfManager: Copy produced 0-byte file, removing");
    items.update(
        [&](auto& list) { list.emplace_back(FileURL::ofPath(path), retentionHours, platform_); });
    saveMetadata();
}

void FileShelfManager::reportFailure(const std::string& reason) const {
    platform_.console().print("FileShelfManager: Failed to copy file: " + reason);
}

void FileShelfManager::removeFile(const ShelfItem& item) {
    removeFromDisk(item);
    items.update([id = item.id](auto& list) {
        std::erase_if(list, [id](const ShelfItem& listed) { return listed.id == id; });
    });
    saveMetadata();
}

void FileShelfManager::removeFromDisk(const ShelfItem& item) {
    const auto path = FileURL::path(item.url).value_or("");
    if (!isOfShelf(path))
        return;
    diskTasks_.add([this, path](std::function<void()> finished) {
        return platform_.runLoop().detach(
            [&copier = platform_.fileCopier(), path] { copier.remove(path); }, std::move(finished));
    });
}

void FileShelfManager::cleanupExpired() {
    const auto now = platform_.runLoop().now();
    const auto isExpired = [now](const ShelfItem& item) { return now > item.expiresAt; };
    for (const auto& item : items.get())
        if (isExpired(item))
            removeFromDisk(item);
    if (std::any_of(items->begin(), items->end(), isExpired))
        items.update([&](auto& list) { std::erase_if(list, isExpired); });
    saveMetadata();
}

bool FileShelfManager::receiveDrop(const std::vector<std::string>& urls) {
    for (const auto& url : urls)
        addFile(url);
    return !urls.empty();
}

FileShelfView FileShelfManager::expandedView() {
    return FileShelfView(*this, platform_);
}

/// Whether a file lies in the shelf's folder and is not the shelf's own: nothing else may be
/// listed, and so deleted one day, whatever the list's file says.
bool FileShelfManager::isOfShelf(std::string_view path) const {
    const auto name = FileURL::lastPathComponent(path);
    return isUsable(name) && path == storageDirectory + "/" + name;
}

void FileShelfManager::loadMetadata() {
    std::vector<ShelfItem> loaded;
    for (const auto& entry : metadata_.load<ShelfItemMetadata>(shelfItemMetadataFrom).records)
        if (isOfShelf(entry.urlPath) && platform_.fileCopier().info(entry.urlPath))
            loaded.emplace_back(FileURL::ofPath(entry.urlPath), retentionHours, platform_);
    items = std::move(loaded);
}

void FileShelfManager::saveMetadata() {
    std::vector<ShelfItemMetadata> entries;
    for (const auto& item : items.get())
        entries.push_back({FileURL::path(item.url).value_or(""), item.addedAt, item.expiresAt});
    metadata_.save(std::move(entries), jsonOf);
}

} // namespace orvelle
