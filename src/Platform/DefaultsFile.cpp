#include "Platform/DefaultsFile.h"

#include "Platform/DefaultsCoding.h"

namespace orvelle {

DefaultsFile::DefaultsFile(FileSystem& fileSystem, LogSink& log)
    : storage_(fileSystem), logger_(log, "DefaultsFile") {
    adopt(storage_.open());
}

std::optional<DefaultsValue> DefaultsFile::value(std::string_view key) const {
    const auto found = own_.document.find(key);
    if (found == own_.document.end())
        return std::nullopt;
    return decodeDefaultsValue(found->second);
}

std::vector<std::string> DefaultsFile::keys() const {
    std::vector<std::string> names;
    for (const auto& [key, json] : own_.document)
        if (decodeDefaultsValue(json))
            names.push_back(key);
    return names;
}

void DefaultsFile::set(std::string_view key, const DefaultsValue& value) {
    if (auto json = encodeDefaultsValue(value)) {
        own_.document.insert_or_assign(std::string(key), *std::move(json));
        noteChange(key);
    } else {
        remove(key);
    }
}

bool DefaultsFile::remove(std::string_view key) {
    const auto found = own_.document.find(key);
    if (found == own_.document.end())
        return false;
    own_.document.erase(found);
    noteChange(key);
    return true;
}

void DefaultsFile::noteChange(std::string_view key) {
    own_.unsaved.insert_or_assign(std::string(key), ++changeCount_);
}

bool DefaultsFile::save(Seconds patience) {
    if (hasUnsavedChanges())
        adopt(storage_.save(own_, patience, DefaultsStorage::Insist::yes));
    return !hasUnsavedChanges();
}

bool DefaultsFile::adopt(DefaultsStorage::Outcome outcome) {
    for (const auto& trouble : outcome.troubles)
        report(trouble);
    for (const auto& [key, change] : outcome.saved)
        if (const auto found = own_.unsaved.find(key);
            found != own_.unsaved.end() && found->second == change)
            own_.unsaved.erase(found);
    if (!outcome.document)
        return false;
    auto document = own_.over(*std::move(outcome.document));
    const bool isDifferent = document != own_.document;
    own_.document = std::move(document);
    reportUnreadableValues();
    return isDifferent;
}

void DefaultsFile::report(const std::string& trouble) {
    if (trouble == reported_)
        return;
    reported_ = trouble;
    logger_.error(trouble);
}

void DefaultsFile::reportUnreadableValues() {
    std::string names;
    for (const auto& [key, json] : own_.document)
        if (!decodeDefaultsValue(json))
            names += (names.empty() ? "" : ", ") + key;
    if (names.empty())
        reported_.clear();
    else
        report(storage_.path() +
               " has values of a kind that no setting has, left as they are: " + names);
}

} // namespace orvelle
