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
           !name.starts_with(ShelfRemovals::noteName) &&
           !name.starts_with(metadataName) &&                    // nor what is kept aside of it
           !name.starts_with("." + std::string(metadataName)) && // nor is being written
           !name.starts_with("." + std::string(ShelfRemovals::noteName));
}

std::string folderOf(std::string_view path) {
    while (path.ends_with('/'))
        path.remove_suffix(1);
    return std::string(path.substr(0, path.rfind('/') + 1));
}

} // namespace

struct FileShelfManager::Copy {
    std::string url;
    std::string path;
    std::atomic<bool> isCancelled{false};
    std::optional<FileCopier::Outcome> outcome; ///< none when nothing was copied
};

FileShelfManager::FileShelfManager(Platform& platform)
    : FeatureModule("fileShelf", "File Shelf", std::string("tray.fill"_symbol)),
      storageDirectory(platform.fileSystem().applicationSupportDirectory() + "/Orvelle/" +
                       folderName),
      metadataURL(storageDirectory + "/" + std::string(metadataName)), platform_(platform),
      metadata_(platform, std::string(folderName) + "/" + std::string(metadataName),
                {shelfItemMetadataFrom, jsonOf, "urlPath"},
                {[this](const auto& entries) { adoptMerged(entries); },
                 [&console = platform.console()](const std::string& reason) {
                     console.print("FileShelfManager: Failed to save metadata: " + reason);
                 }}),
      removals_(platform, storageDirectory) {
    platform.fileCopier().makeFolder(storageDirectory);
    loadMetadata();
    clearHalfCopies();
}

/// What a copy left when its process was killed.
void FileShelfManager::clearHalfCopies() {
    auto& copier = platform_.fileCopier();
    const auto staging = storageDirectory + "/" + FileCopier::stagingName;
    if (!copier.info(staging))
        return;
    copies_.add([this, &copier, staging](std::function<void()> finished) {
        return platform_.runLoop().detach([&copier, staging] { copier.remove(staging); },
                                          std::move(finished));
    });
}

void FileShelfManager::start() {
    cleanupTimer = platform_.runLoop().every(cleanupInterval, [this] { cleanupExpired(); });
    cleanupExpired();
}

// A copy and the removal of an older file of its name never meet on the disk in an unknown order:
// the one waits for the other at its beginning, and is looked for again at its end.
void FileShelfManager::addFile(const std::string& url) {
    const auto copy = std::make_shared<Copy>();
    copy->url = url;
    const auto awaitRemovals = [this](std::function<void()> finished) {
        return removals_.whenDone(std::move(finished));
    };
    copies_.add(awaitRemovals);
    copies_.add([this, copy](std::function<void()> finished) {
        return beginCopy(copy, std::move(finished));
    });
    copies_.add(awaitRemovals);
    copies_.add([this, copy](const std::function<void()>&) {
        copied(*copy);
        return Subscription();
    });
}

Subscription FileShelfManager::beginCopy(const std::shared_ptr<Copy>& copy,
                                         std::function<void()> finished) {
    if (items->size() >= maximumItems)
        return {};
    const auto source = FileURL::path(copy->url);
    const auto name = source ? shelfName(*source) : "";
    if (!isUsable(name)) {
        reportFailure("The file's name cannot be used.");
        return {};
    }
    copy->path = storageDirectory + "/" + name;
    auto& copier = platform_.fileCopier();
    auto work = [&copier, copy, source = *source, folder = storageDirectory, name] {
        copy->outcome = copier.copy(source, folder, name, copy->isCancelled);
        if (!copy->outcome->failure && copy->outcome->info.size <= 0)
            copier.remove(copy->path);
    };
    auto running = std::make_shared<Subscription>(
        platform_.runLoop().detach(std::move(work), std::move(finished)));
    return Subscription([copy, running] {
        copy->isCancelled = true;
        running->reset();
    });
}

void FileShelfManager::copied(const Copy& copy) {
    if (!copy.outcome)
        return;
    if (copy.outcome->failure)
        return reportFailure(*copy.outcome->failure);
    if (copy.outcome->info.size <= 0)
        return platform_.console().print("FileShelfManager: Copy produced 0-byte file, removing");
    if (!platform_.fileCopier().info(copy.path))
        return reportFailure("It was removed meanwhile.");
    items.update([&](auto& list) {
        list.emplace_back(FileURL::ofPath(copy.path), retentionHours, platform_);
    });
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
    if (const auto path = shelfPath(FileURL::path(item.url).value_or("")))
        removals_.remove(FileURL::lastPathComponent(*path));
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

/// The path, as the shelf spells it, of what lies in the shelf's folder and is not the shelf's own:
/// nothing else may be listed, and so deleted one day, whatever the list's file says.
std::optional<std::string> FileShelfManager::shelfPath(std::string_view path) const {
    const auto name = FileURL::lastPathComponent(path);
    if (!isUsable(name))
        return std::nullopt;
    auto spelled = storageDirectory + "/" + name;
    const auto& copier = platform_.fileCopier();
    if (path == spelled)
        return spelled;
    const auto shelf = copier.canonicalPath(storageDirectory);
    if (!shelf || copier.canonicalPath(folderOf(path)) != shelf)
        return std::nullopt;
    return spelled;
}

void FileShelfManager::loadMetadata() {
    auto loading = metadata_.load();
    if (!loading.problem.empty())
        loading.records = entriesOfFolder();
    items = itemsOf(loading.records);
}

/// All that is known of the shelf once its list is damaged.
std::vector<ShelfItemMetadata> FileShelfManager::entriesOfFolder() const {
    std::vector<ShelfItemMetadata> entries;
    for (const auto& name : platform_.fileSystem().names(storageDirectory))
        entries.push_back({storageDirectory + "/" + name, {}, {}});
    return entries;
}

std::vector<ShelfItem>
FileShelfManager::itemsOf(const std::vector<ShelfItemMetadata>& entries) const {
    std::vector<ShelfItem> found;
    for (const auto& entry : entries) {
        const auto path = shelfPath(entry.urlPath);
        if (path && platform_.fileCopier().info(*path) &&
            !removals_.isPending(FileURL::lastPathComponent(*path)))
            found.emplace_back(FileURL::ofPath(*path), retentionHours, platform_);
    }
    return found;
}

/// What is listed already stays the item that it is.
void FileShelfManager::adoptMerged(const std::vector<ShelfItemMetadata>& entries) {
    auto known = items.get();
    auto merged = itemsOf(entries);
    for (auto& item : merged) {
        const auto same = std::ranges::find(known, item.url, &ShelfItem::url);
        if (same == known.end())
            continue;
        item = *same;
        known.erase(same);
    }
    items = std::move(merged);
}

void FileShelfManager::saveMetadata() {
    std::vector<ShelfItemMetadata> entries;
    for (const auto& item : items.get())
        entries.push_back({FileURL::path(item.url).value_or(""), item.addedAt, item.expiresAt});
    metadata_.save(std::move(entries));
}

} // namespace orvelle
