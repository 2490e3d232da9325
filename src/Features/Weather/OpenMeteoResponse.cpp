#include "Features/Weather/OpenMeteoResponse.h"

namespace orvelle {

Decoded<OpenMeteoResponse> OpenMeteoResponse::decode(std::string_view body) {
    const auto document = JsonReply::parse(body);
    if (!document || !document->object())
        return {std::nullopt, JsonRecord::isInWrongFormat};
    JsonRecord current(document->find("current"));
    return current.decoded(OpenMeteoResponse{{
        .temperature = current.number("temperature_2m"),
        .apparentTemperature = current.number("apparent_temperature"),
        .relativeHumidity = current.integer("relative_humidity_2m"),
        .windSpeed = current.number("wind_speed_10m"),
        .weatherCode = current.integer("weather_code"),
        .isDay = current.integer("is_day"),
    }});
}

} // namespace orvelle
