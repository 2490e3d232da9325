#include "Models/TodoItem.h"

#include "Models/JsonFields.h"

namespace orvelle {

Json TodoItem::json() const {
    return Json::Object{{"id", id.text()},
                        {"title", title},
                        {"isCompleted", isCompleted},
                        {"createdAt", createdAt.sinceReference}};
}

std::optional<TodoItem> TodoItem::fromJson(const Json& json) {
    const auto id = JsonFields::uuid(json, "id");
    auto title = JsonFields::text(json, "title");
    const auto isCompleted = JsonFields::boolean(json, "isCompleted");
    const auto createdAt = JsonFields::date(json, "createdAt");
    if (!id || !title || !isCompleted || !createdAt)
        return std::nullopt;
    return TodoItem{*id, *std::move(title), *isCompleted, *createdAt};
}

} // namespace orvelle
