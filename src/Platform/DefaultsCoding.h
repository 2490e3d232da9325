#pragma once

#include "Foundation/Json.h"
#include "Platform/UserDefaults.h"

namespace orvelle {

/// Settings as they stand in a file: booleans, numbers and texts as themselves, a date as
/// {"$date": seconds since 2001-01-01 00:00:00 UTC}, data as {"$data": "base64"}. A number with a
/// fraction or an exponent is a double, so 5.0 stays one.
///
/// None for a number or date that is not finite.
std::optional<Json> encodeDefaultsValue(const DefaultsValue& value);
/// None for what no setting can hold: null, lists, other objects.
std::optional<DefaultsValue> decodeDefaultsValue(const Json& json);

/// One setting a line, for people who edit the file.
std::string defaultsFileText(const Json::Object& document);

} // namespace orvelle
