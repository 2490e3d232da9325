#include "Platform/DefaultsFile.h"

#include "Platform/DefaultsCoding.h"

namespace orvelle {

DefaultsFile::DefaultsFile(FileSystem& fileSystem, LogSink& log)
    : fileSystem_(fileSystem), logger_(log, "DefaultsFile"), path_(path(fileSystem)) {
    auto reading = read();
    if (!reading.problem.empty())
        makeWay(reading);
    if (reading.document) {
        document_ = *std::move(reading.document);
        reportUnreadableValues();
    }
}

std::string DefaultsFile::path(const FileSystem& fileSystem) {
    return fileSystem.configurationDirectory() + "/defaults.json";
}

std::optional<DefaultsValue> DefaultsFile::value(std::string_view key) const {
    const auto found = document_.find(key);
    if (found == document_.end())
        return std::nullopt;
    return decodeDefaultsValue(found->second);
}

std::vector<std::string> DefaultsFile::keys() const {
    std::vector<std::string> names;
    for (const auto& [key, json] : document_)
        if (decodeDefaultsValue(json))
            names.push_back(key);
    return names;
}

void DefaultsFile::set(std::string_view key, const DefaultsValue& value) {
    if (auto json = encodeDefaultsValue(value)) {
        document_.insert_or_assign(std::string(key), *std::move(json));
        unsaved_.emplace(key);
    } else {
        remove(key);
    }
}

bool DefaultsFile::remove(std::string_view key) {
    const auto found = document_.find(key);
    if (found == document_.end())
        return false;
    document_.erase(found);
    unsaved_.emplace(key);
    return true;
}

bool DefaultsFile::reload() {
    auto reading = read();
    if (!reading.problem.empty())
        report(path_ + " " + reading.problem + "; the settings stay as they were");
    if (!reading.document)
        return false;
    auto document = withUnsavedChanges(*std::move(reading.document));
    if (document == document_)
        return false;
    document_ = std::move(document);
    reportUnreadableValues();
    return true;
}

DefaultsFile::SaveOutcome DefaultsFile::save(Seconds patience, Insist insist) {
    if (!hasUnsavedChanges())
        return {SaveResult::saved};
    const auto lock = fileSystem_.lock(path_.substr(0, path_.rfind('/')), patience);
    if (!lock && insist == Insist::no)
        return {SaveResult::busy};

    const auto reading = read();
    if (!reading.problem.empty()) {
        if (insist == Insist::no)
            return {SaveResult::busy}; // an editor may be in the middle of writing
        if (!makeWay(reading))
            return {SaveResult::refused};
    }
    auto merged = withUnsavedChanges(reading.document.value_or(document_));
    if (merged != reading.document) {
        const auto text = defaultsFileText(merged);
        if (text.size() > maximumSize || !fileSystem_.write(path_, text)) {
            report(path_ + " cannot be written; settings are kept for this run only");
            return {SaveResult::refused};
        }
    }
    unsaved_.clear();
    const bool valuesChanged = merged != document_;
    document_ = std::move(merged);
    reportUnreadableValues();
    return {SaveResult::saved, valuesChanged};
}

DefaultsFile::Reading DefaultsFile::read() const {
    const auto contents = fileSystem_.read(path_, maximumSize);
    if (contents.failure) {
        switch (*contents.failure) {
        case FileSystem::ReadFailure::missing:
            return {};
        case FileSystem::ReadFailure::tooLarge:
            return {{}, "is larger than 4 MB"};
        case FileSystem::ReadFailure::unreadable:
            return {{}, "cannot be read"};
        }
    }
    if (contents.bytes.empty())
        return {{}, "is empty", false};
    const auto json = Json::parse(contents.bytes);
    const auto* members = json ? json->object() : nullptr;
    if (!members)
        return {{}, "is not a JSON object"};
    return {*members, {}};
}

bool DefaultsFile::makeWay(const Reading& unusable) {
    const auto trouble = path_ + " " + unusable.problem;
    if (!unusable.hasContent) {
        report(trouble);
        return true;
    }
    const bool moved = fileSystem_.move(path_, path_ + ".corrupt");
    report(trouble + (moved ? "; it is kept as defaults.json.corrupt"
                            : " and cannot be put aside; settings are kept for this run only"));
    return moved;
}

Json::Object DefaultsFile::withUnsavedChanges(Json::Object document) const {
    for (const auto& key : unsaved_) {
        if (const auto own = document_.find(key); own != document_.end())
            document.insert_or_assign(key, own->second);
        else
            document.erase(key);
    }
    return document;
}

void DefaultsFile::report(const std::string& trouble) {
    if (trouble == reported_)
        return;
    reported_ = trouble;
    logger_.error(trouble);
}

void DefaultsFile::reportUnreadableValues() {
    std::string names;
    for (const auto& [key, json] : document_)
        if (!decodeDefaultsValue(json))
            names += (names.empty() ? "" : ", ") + key;
    if (names.empty())
        reported_.clear();
    else
        report(path_ + " has values of a kind that no setting has, left as they are: " + names);
}

} // namespace orvelle
