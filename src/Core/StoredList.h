#pragma once

#include "Foundation/Json.h"
#include "Platform/UserDefaults.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The records of a JSON array. `decode` gives none for an element that is no such record, and then
/// the whole list is none.
template <class Record, class Decode>
std::optional<std::vector<Record>> decodeList(std::string_view bytes, Decode decode) {
    const auto document = Json::parse(bytes);
    if (!document || !document->array())
        return std::nullopt;
    std::vector<Record> records;
    for (const auto& element : *document->array()) {
        auto record = decode(element);
        if (!record)
            return std::nullopt;
        records.push_back(std::move(*record));
    }
    return records;
}

template <class Record, class Encode>
Json::Array encodeArray(const std::vector<Record>& records, Encode encode) {
    Json::Array array;
    for (const auto& record : records)
        array.push_back(encode(record));
    return array;
}

template <class Record, class Encode>
std::string encodeList(const std::vector<Record>& records, Encode encode) {
    return Json(encodeArray(records, encode)).text();
}

/// A list of records that a setting holds as the bytes of a JSON array.
template <class Record, class Decode>
std::optional<std::vector<Record>> loadStoredList(const UserDefaults& defaults,
                                                  std::string_view key, Decode decode) {
    const auto data = defaults.data(key);
    if (!data)
        return std::nullopt;
    return decodeList<Record>({reinterpret_cast<const char*>(data->data()), data->size()}, decode);
}

template <class Record, class Encode>
void saveStoredList(UserDefaults& defaults, std::string_view key,
                    const std::vector<Record>& records, Encode encode) {
    const auto text = encodeList(records, encode);
    defaults.set(key, Data(text.begin(), text.end()));
}

/// Brings a stored list up to date: adds the default records that it lacks, behind the stored ones,
/// and drops those that the defaults do not know.
template <class Record>
void mergeDefaults(std::vector<Record>& stored, const std::vector<Record>& defaults) {
    const auto has = [](const std::vector<Record>& list, const std::string& id) {
        return std::any_of(list.begin(), list.end(),
                           [&](const Record& record) { return record.id == id; });
    };
    for (const auto& record : defaults)
        if (!has(stored, record.id))
            stored.push_back(record);
    std::erase_if(stored, [&](const Record& record) { return !has(defaults, record.id); });
}

/// In display order; records of equal order keep their places.
template <class Record>
std::vector<Record> sortedByOrder(std::vector<Record> records) {
    std::stable_sort(records.begin(), records.end(),
                     [](const Record& a, const Record& b) { return a.sortOrder < b.sortOrder; });
    return records;
}

/// Gives each listed record its position in `rows` as its sort order.
template <class Record>
void renumber(std::vector<Record>& records, const std::vector<Record>& rows) {
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const auto found = std::find_if(records.begin(), records.end(), [&](const Record& record) {
            return record.id == rows[index].id;
        });
        if (found != records.end())
            found->sortOrder = static_cast<std::int64_t>(index);
    }
}

/// Turns the visibility of the first record with this id; false when there is none.
template <class Record>
bool toggleVisible(std::vector<Record>& records, std::string_view id) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const Record& record) { return record.id == id; });
    if (found == records.end())
        return false;
    found->isVisible = !found->isVisible;
    return true;
}

} // namespace orvelle
