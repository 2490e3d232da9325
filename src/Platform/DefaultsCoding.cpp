#include "Platform/DefaultsCoding.h"

#include "Foundation/Base64.h"

#include <cmath>

namespace orvelle {

namespace {

constexpr const char* dateTag = "$date";
constexpr const char* dataTag = "$data";

struct Encoder {
    std::optional<Json> operator()(double value) const {
        if (!std::isfinite(value))
            return std::nullopt;
        return Json(value);
    }
    std::optional<Json> operator()(Date value) const {
        if (!std::isfinite(value.sinceReference))
            return std::nullopt;
        return Json(Json::Object{{dateTag, value.sinceReference}});
    }
    std::optional<Json> operator()(const Data& value) const {
        return Json(Json::Object{{dataTag, base64(value)}});
    }
    template <class Plain>
    std::optional<Json> operator()(const Plain& value) const {
        return Json(value);
    }
};

std::optional<DefaultsValue> decodeTagged(const Json& json) {
    if (json.object()->size() != 1)
        return std::nullopt;
    if (const auto* date = json.find(dateTag))
        if (const auto seconds = date->number())
            return Date{*seconds};
    if (const auto* data = json.find(dataTag))
        if (const auto text = data->string())
            if (auto bytes = bytesOfBase64(*text))
                return *std::move(bytes);
    return std::nullopt;
}

} // namespace

std::optional<Json> encodeDefaultsValue(const DefaultsValue& value) {
    return std::visit(Encoder(), value);
}

std::optional<DefaultsValue> decodeDefaultsValue(const Json& json) {
    if (const auto flag = json.boolean())
        return *flag;
    if (json.isReal())
        return *json.number();
    if (const auto whole = json.integer())
        return *whole;
    if (auto text = json.string())
        return *std::move(text);
    if (json.object())
        return decodeTagged(json);
    return std::nullopt;
}

std::string defaultsFileText(const Json::Object& document) {
    std::string text = "{";
    const char* separator = "\n";
    for (const auto& [key, value] : document) {
        text += separator;
        text += "  " + Json(key).text() + ": " + value.text();
        separator = ",\n";
    }
    return text + "\n}\n";
}

} // namespace orvelle
