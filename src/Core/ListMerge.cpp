#include "Core/ListMerge.h"

#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orvelle {

namespace {

/// A record's identifier, and which of the records that share it this is.
using RecordKey = std::pair<std::string, int>;

std::vector<RecordKey> keysOf(const Json::Array& list, std::string_view identifier) {
    std::map<std::string, int> counts;
    std::vector<RecordKey> keys;
    for (const auto& record : list) {
        auto text = (identifier.empty() ? record : record.member(identifier)).text();
        const int occurrence = counts[text]++;
        keys.emplace_back(std::move(text), occurrence);
    }
    return keys;
}

using Records = std::map<RecordKey, const Json*>;

Records recordsOf(const Json::Array& list, const std::vector<RecordKey>& keys) {
    Records records;
    for (std::size_t index = 0; index < list.size(); ++index)
        records.emplace(keys[index], &list[index]);
    return records;
}

const Json* find(const Records& records, const RecordKey& key) {
    const auto found = records.find(key);
    return found == records.end() ? nullptr : found->second;
}

bool isUnchanged(const Json* before, const Json& now) {
    return before && *before == now;
}

} // namespace

Json::Array mergedLists(const Json::Array& base, const Json::Array& own, const Json::Array& others,
                        std::string_view identifier) {
    const auto ownKeys = keysOf(own, identifier);
    const auto otherKeys = keysOf(others, identifier);
    const auto before = recordsOf(base, keysOf(base, identifier));
    const auto mine = recordsOf(own, ownKeys);
    const auto theirs = recordsOf(others, otherKeys);

    // Which of the others' records stand behind which own one, or before them all.
    std::map<const Json*, std::vector<const Json*>> following;
    const Json* neighbour = nullptr;
    for (const auto& key : otherKeys) {
        const auto* record = find(theirs, key);
        if (const auto* kept = find(mine, key))
            neighbour = kept;
        else if (!isUnchanged(find(before, key), *record))
            following[neighbour].push_back(record);
    }

    Json::Array merged;
    const auto append = [&](const Json* place) {
        for (const auto* record : following[place])
            merged.push_back(*record);
    };
    append(nullptr);
    for (std::size_t index = 0; index < own.size(); ++index) {
        const auto& record = own[index];
        const auto* other = find(theirs, ownKeys[index]);
        if (!isUnchanged(find(before, ownKeys[index]), record))
            merged.push_back(record);
        else if (other)
            merged.push_back(*other);
        append(&record);
    }
    return merged;
}

} // namespace orvelle
