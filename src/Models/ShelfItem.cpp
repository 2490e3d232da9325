#include "Models/ShelfItem.h"

#include "Foundation/FileURL.h"
#include "Platform/FileCopier.h"
#include "Platform/FileIcons.h"
#include "Platform/RunLoop.h"

#include <utility>

namespace orvelle {

ShelfItem::ShelfItem(std::string fileURL, std::int64_t retentionHours, Platform& platform)
    : id(UUID::random()), url(std::move(fileURL)), addedAt(platform.runLoop().now()),
      expiresAt(addedAt + static_cast<Seconds>(retentionHours) * 3600) {
    const auto path = FileURL::path(url).value_or("");
    const auto info = platform.fileCopier().info(path).value_or(FileCopier::Info{});
    name = FileURL::lastPathComponent(path);
    size = info.size;
    if (!info.isFolder)
        fileType = platform.fileIcons().type(name);
    icon = platform.fileIcons().icon(name, info.isFolder);
}

} // namespace orvelle
