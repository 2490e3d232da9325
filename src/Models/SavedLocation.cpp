#include "Models/SavedLocation.h"

#include "Models/JsonFields.h"

namespace orvelle {

Json SavedLocation::json() const {
    return Json::Object{
        {"id", id.text()}, {"name", name}, {"latitude", latitude}, {"longitude", longitude}};
}

std::optional<SavedLocation> SavedLocation::fromJson(const Json& json) {
    const auto id = JsonFields::uuid(json, "id");
    auto name = JsonFields::text(json, "name");
    const auto latitude = JsonFields::number(json, "latitude");
    const auto longitude = JsonFields::number(json, "longitude");
    if (!id || !name || !latitude || !longitude)
        return std::nullopt;
    return SavedLocation{*id, *std::move(name), *latitude, *longitude};
}

} // namespace orvelle
