#pragma once

#include "Core/ListSaving.h"
#include "Core/StoredList.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvelle {

/// How the records of a list look in its file.
template <class Record>
struct ListCoding {
    std::function<std::optional<Record>(const Json&)> decode;
    std::function<Json(const Record&)> encode;
    /// The member that tells records apart, also those that another program has written; empty when
    /// a record is what it is by its whole value.
    std::string identifier;
};

/// The file of one list in the "Orvelle" folder: a JSON array, replaced as a whole and durably by
/// each save.
///
/// Loading reads on the spot. Saving happens in the background, one save at a time and in order; a
/// list that another has overtaken before its turn is not written. Main thread only.
template <class Record>
class ListFile : public ListSaving {
public:
    using Records = std::vector<Record>;
    struct Loading {
        Records records;
        std::string problem; ///< why the file is of no use; empty otherwise, without a file too
    };
    struct Events {
        /// The list with what another program has changed in the file; it is saved already.
        std::function<void(Records)> merged;
        /// For the log, once for each reason; the list in memory is ahead of the file until a later
        /// save.
        std::function<void(const std::string& reason)> savingFailed;
    };

    /// `name` is relative to the "Orvelle" folder.
    ListFile(Platform& platform, std::string_view name, ListCoding<Record> coding, Events events)
        : ListSaving(platform, name, coding.identifier,
                     [coding](std::string_view bytes) { return canonical(coding, bytes); },
                     {[coding, merged = std::move(events.merged)](const Json::Array& list) {
                          merged(recordsOf(coding, list));
                      },
                      std::move(events.savingFailed)}),
          coding_(std::move(coding)) {}

    /// An element that is no such record makes the whole file useless. It stays until the next
    /// save, which keeps it aside.
    Loading load() {
        auto loading = ListSaving::load();
        return {recordsOf(coding_, loading.records), std::move(loading.problem)};
    }

    void save(Records records) {
        ListSaving::save([shared = std::make_shared<const Records>(std::move(records)),
                          encode = coding_.encode] { return encodeArray(*shared, encode); });
    }

private:
    static std::optional<Json::Array> canonical(const ListCoding<Record>& coding,
                                                std::string_view bytes) {
        const auto records = decodeList<Record>(bytes, coding.decode);
        return records ? std::optional(encodeArray(*records, coding.encode)) : std::nullopt;
    }
    static Records recordsOf(const ListCoding<Record>& coding, const Json::Array& list) {
        Records records;
        for (const auto& element : list)
            if (auto record = coding.decode(element))
                records.push_back(*std::move(record));
        return records;
    }

    ListCoding<Record> coding_;
};

} // namespace orvelle
