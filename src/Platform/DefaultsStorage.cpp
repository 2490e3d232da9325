#include "Platform/DefaultsStorage.h"

#include "Platform/DefaultsCoding.h"
#include "Platform/KeptAside.h"
#include "Platform/WritersLock.h"

namespace orvelle {

Json::Object DefaultsCopy::over(Json::Object others) const {
    for (const auto& [key, change] : unsaved) {
        if (const auto own = document.find(key); own != document.end())
            others.insert_or_assign(key, own->second);
        else
            others.erase(key);
    }
    return others;
}

DefaultsStorage::DefaultsStorage(FileSystem& fileSystem)
    : fileSystem_(&fileSystem), path_(path(fileSystem)) {}

std::string DefaultsStorage::path(const FileSystem& fileSystem) {
    return fileSystem.configurationDirectory() + "/defaults.json";
}

DefaultsStorage::Outcome DefaultsStorage::open() const {
    Outcome outcome;
    fileSystem_->clearRests(path_);
    auto reading = readFile();
    if (reading.content == Reading::Content::unknown) // perhaps only now
        outcome.troubles.push_back(path_ + " " + reading.problem);
    else if (!reading.problem.empty())
        (void)makeWay(reading, outcome.troubles); // it tells; the first save tries again
    outcome.document = std::move(reading.document);
    return outcome;
}

DefaultsStorage::Outcome DefaultsStorage::read() const {
    Outcome outcome;
    auto reading = readFile();
    if (!reading.problem.empty())
        outcome.troubles.push_back(path_ + " " + reading.problem +
                                   "; the settings stay as they were");
    outcome.document = std::move(reading.document);
    return outcome;
}

DefaultsStorage::Outcome DefaultsStorage::save(const DefaultsCopy& own, Seconds patience,
                                               Insist insist) const {
    Outcome outcome;
    outcome.result = insist == Insist::no ? Result::busy : Result::refused;
    const auto held = lockAmongWriters(*fileSystem_, path_, maximumSize, patience);
    if (!held && insist == Insist::no)
        return outcome;
    const auto reading = readFile();
    if (!reading.problem.empty()) {
        if (insist == Insist::no)
            return outcome; // an editor may be in the middle of writing
        outcome.failure = makeWay(reading, outcome.troubles).failure();
        if (outcome.failure)
            return outcome;
    }

    outcome.result = Result::refused;
    auto merged = own.over(reading.document.value_or(own.document));
    if (merged != reading.document) {
        const auto text = defaultsFileText(merged);
        const auto written = text.size() > maximumSize ? WriteOutcome(WriteFailure::tooLarge)
                                                       : fileSystem_->write(path_, text);
        outcome.failure = written.failure();
        if (outcome.failure) {
            outcome.troubles.push_back(path_ + " cannot be written: " + describe(*outcome.failure));
            return outcome;
        }
    }
    outcome.result = Result::saved;
    outcome.document = std::move(merged);
    outcome.saved = own.unsaved;
    return outcome;
}

DefaultsStorage::Reading DefaultsStorage::readFile() const {
    const auto contents = fileSystem_->read(path_, maximumSize);
    if (contents.failure) {
        switch (*contents.failure) {
        case FileSystem::ReadFailure::missing:
            return {};
        case FileSystem::ReadFailure::tooLarge:
            return {{}, "is larger than 4 MB"};
        case FileSystem::ReadFailure::unreadable:
            return {{}, "cannot be read", Reading::Content::unknown};
        }
    }
    if (contents.bytes.empty())
        return {{}, "is empty", Reading::Content::none};
    const auto json = Json::parse(contents.bytes);
    const auto* members = json ? json->object() : nullptr;
    if (!members)
        return {{}, "is not a JSON object"};
    return {*members, {}};
}

WriteOutcome DefaultsStorage::makeWay(const Reading& unusable,
                                      std::vector<std::string>& troubles) const {
    const auto trouble = path_ + " " + unusable.problem;
    if (unusable.content == Reading::Content::none) {
        troubles.push_back(trouble);
        return {};
    }
    const auto kept = keepAside(*fileSystem_, path_);
    troubles.push_back(trouble + (kept.outcome ? "; it is kept as " + kept.name
                                               : " and cannot be put aside: " +
                                                     describe(*kept.outcome.failure())));
    return kept.outcome;
}

} // namespace orvelle
