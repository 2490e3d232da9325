#include "Models/NoteItem.h"

#include "Models/JsonFields.h"

namespace orvelle {

Json NoteItem::json() const {
    return Json::Object{{"id", id.text()}, {"text", text}, {"createdAt", createdAt.sinceReference}};
}

std::optional<NoteItem> NoteItem::fromJson(const Json& json) {
    const auto id = JsonFields::uuid(json, "id");
    auto text = JsonFields::text(json, "text");
    const auto createdAt = JsonFields::date(json, "createdAt");
    if (!id || !text || !createdAt)
        return std::nullopt;
    return NoteItem{*id, *std::move(text), *createdAt};
}

} // namespace orvelle
