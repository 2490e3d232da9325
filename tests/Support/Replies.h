#pragma once

#include "Foundation/Json.h"
#include "Platform/HttpClient.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvelle {

/// Replies of the web services, as the program reads them.
namespace Replies {

inline HttpReply ok(std::string body) {
    return {{}, 200, std::move(body)};
}

inline std::string forecast(double temperature = 72.4, int isDay = 1, int code = 2) {
    return Json(Json::Object{{"latitude", 48.0},
                             {"current", Json::Object{{"time", "2026-01-15T12:00"},
                                                      {"temperature_2m", temperature},
                                                      {"apparent_temperature", 70.6},
                                                      {"relative_humidity_2m", 41},
                                                      {"wind_speed_10m", 8.7},
                                                      {"weather_code", code},
                                                      {"is_day", isDay}}}})
        .text();
}

inline std::string chart(double price, double previousClose) {
    Json::Object meta{
        {"symbol", "XYZ"}, {"regularMarketPrice", price}, {"chartPreviousClose", previousClose}};
    Json::Object result{{"meta", std::move(meta)}};
    return Json(Json::Object{{"chart", Json::Object{{"result", Json::Array{std::move(result)}},
                                                    {"error", nullptr}}}})
        .text();
}

inline std::string manifest(const std::string& version,
                            const std::string& url = "downloads/app.dmg") {
    return Json(Json::Object{
                    {"version", version}, {"build", "7"}, {"url", url}, {"notes", "Better."}})
        .text();
}

/// One value of every JSON type, and those that are hard to hold.
inline std::vector<Json> valuesOfEveryType() {
    return {Json(),
            Json(true),
            Json(0),
            Json(1.5),
            Json(-1e300),
            Json(1e300),
            Json("text"),
            Json(""),
            Json(Json::Array{}),
            Json(Json::Array{Json(1)}),
            Json(Json::Object{}),
            Json(Json::Object{{"name", Json(1)}})};
}

/// Calls `use` with the document in which each member or element, at any depth, was replaced by
/// each of these values, and each member left out; `path` says which, and `value` is null for a
/// member that was left out.
inline void forEachMutation(
    const Json& document,
    const std::function<void(const Json& mutated, const std::string& path, const Json& value)>& use,
    const std::string& path = {},
    const std::function<Json(Json)>& rebuild = [](Json json) { return json; }) {
    for (const auto& value : valuesOfEveryType())
        use(rebuild(value), path, value);
    if (const auto* members = document.object())
        for (const auto& [key, member] : *members) {
            auto without = *members;
            without.erase(key);
            use(rebuild(Json(std::move(without))), path + "/" + key, Json());
            forEachMutation(member, use, path + "/" + key, [&, name = key](Json json) {
                auto changed = *members;
                changed.insert_or_assign(name, std::move(json));
                return rebuild(Json(std::move(changed)));
            });
        }
    if (const auto* elements = document.array())
        for (std::size_t index = 0; index < elements->size(); ++index)
            forEachMutation((*elements)[index], use, path + "/" + std::to_string(index),
                            [&, index](Json json) {
                                auto changed = *elements;
                                changed[index] = std::move(json);
                                return rebuild(Json(std::move(changed)));
                            });
}

} // namespace Replies

} // namespace orvelle
