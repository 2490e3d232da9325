#include "Features/Weather/GeocodingResponse.h"

namespace orvelle {

std::string GeocodingResult::label() const {
    std::string text = name;
    for (const auto& part : {admin1, country})
        if (part)
            text += ", " + *part;
    return text;
}

Decoded<GeocodingResponse> GeocodingResponse::decode(std::string_view body) {
    const auto document = JsonReply::parse(body);
    if (!document || !document->object())
        return {std::nullopt, JsonRecord::isInWrongFormat};
    GeocodingResponse response;
    const auto* list = document->find("results");
    if (!list || list->isNull())
        return {response, {}};
    if (!list->array())
        return {std::nullopt, JsonRecord::isInWrongFormat};
    for (const auto& element : *list->array()) {
        JsonRecord reader(&element);
        response.results.push_back({.name = reader.string("name"),
                                    .latitude = reader.number("latitude"),
                                    .longitude = reader.number("longitude"),
                                    .country = reader.optionalString("country"),
                                    .admin1 = reader.optionalString("admin1")});
        if (!reader.error().empty())
            return {std::nullopt, reader.error()};
    }
    return {response, {}};
}

} // namespace orvelle
