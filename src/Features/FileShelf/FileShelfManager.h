#pragma once

#include "Core/ListFile.h"
#include "Core/TaskQueue.h"
#include "Features/FileShelf/ShelfItemMetadata.h"
#include "Features/FileShelf/ShelfRemovals.h"
#include "Models/ShelfItem.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class FileShelfView;

/// A temporary tray of files in the notch. What is put there is copied into a folder of the
/// shelf's own, in the background and one file after the other, and deleted after a day.
class FileShelfManager : public FeatureModule,
                         public ExpandedViewProvider<FileShelfView>,
                         public DropReceiver {
public:
    static constexpr std::size_t maximumItems = 20;
    static constexpr std::int64_t retentionHours = 24;
    static constexpr Seconds cleanupInterval = 300;

    explicit FileShelfManager(Platform& platform = Platform::shared());

    Published<std::vector<ShelfItem>> items; ///< in order of adding
    Timer cleanupTimer;
    const std::string storageDirectory;
    const std::string metadataURL; ///< the list's file, inside the folder

    /// Whatever its switch says: so are drops taken.
    void start() override;

    /// Copies the file and lists the copy once it is whole. A copy takes the place of an older one
    /// of the same name, whose item stays. Nothing is added to a full shelf, nor an empty file.
    void addFile(const std::string& url);
    /// Deletes the copy, also from under another item of the same name.
    void removeFile(const ShelfItem& item);
    /// Lets go of the items whose time is over.
    void cleanupExpired();

    FileShelfView expandedView() override;
    bool acceptsDrops() const override { return true; }
    bool receiveDrop(const std::vector<std::string>& urls) override;

private:
    struct Copy;

    Subscription beginCopy(const std::shared_ptr<Copy>& copy, std::function<void()> finished);
    void copied(const Copy& copy);
    void removeFromDisk(const ShelfItem& item);
    std::optional<std::string> shelfPath(std::string_view path) const;
    void reportFailure(const std::string& reason) const;
    void clearHalfCopies();
    void loadMetadata();
    std::vector<ShelfItemMetadata> entriesOfFolder() const;
    std::vector<ShelfItem> itemsOf(const std::vector<ShelfItemMetadata>& entries) const;
    void adoptMerged(const std::vector<ShelfItemMetadata>& entries);
    void saveMetadata();

    Platform& platform_;
    ListFile<ShelfItemMetadata> metadata_;
    ShelfRemovals removals_;
    TaskQueue copies_;
};

} // namespace orvelle
