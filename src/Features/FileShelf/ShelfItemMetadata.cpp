#include "Features/FileShelf/ShelfItemMetadata.h"

namespace orvelle {

namespace {

constexpr const char* urlPathKey = "urlPath";
constexpr const char* addedAtKey = "addedAt";
constexpr const char* expiresAtKey = "expiresAt";

} // namespace

Json jsonOf(const ShelfItemMetadata& entry) {
    return Json::Object{{urlPathKey, entry.urlPath},
                        {addedAtKey, entry.addedAt.sinceReference},
                        {expiresAtKey, entry.expiresAt.sinceReference}};
}

std::optional<ShelfItemMetadata> shelfItemMetadataFrom(const Json& element) {
    const auto* urlPath = element.find(urlPathKey);
    const auto* addedAt = element.find(addedAtKey);
    const auto* expiresAt = element.find(expiresAtKey);
    if (!urlPath || !addedAt || !expiresAt)
        return std::nullopt;
    const auto path = urlPath->string();
    const auto added = addedAt->number();
    const auto expires = expiresAt->number();
    if (!path || !added || !expires)
        return std::nullopt;
    return ShelfItemMetadata{*path, Date{*added}, Date{*expires}};
}

} // namespace orvelle
