#include "Platform/Icu/SystemTimeZone.h"

#include <unicode/timezone.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>

namespace orvelle {

namespace {

constexpr const char* localTimeFile = "/etc/localtime";

/// "Europe/London" for ".../zoneinfo/posix/Europe/London"; a text that is no such path as it is.
std::string identifierIn(std::string text) {
    constexpr std::string_view root = "/zoneinfo/";
    if (const auto start = text.find(root); start != std::string::npos)
        text.erase(0, start + root.size());
    for (const std::string_view variant : {"posix/", "right/"})
        if (text.starts_with(variant))
            text.erase(0, variant.size());
    return text;
}

std::string behindLinks(const std::string& path) {
    std::error_code failure;
    const auto resolved = std::filesystem::canonical(path, failure);
    return failure ? std::string() : identifierIn(resolved.string());
}

/// A TZ text is a zone's name, or the path of its file, with or without a colon before it.
std::string identifierOfVariable(std::string text) {
    if (text.starts_with(':'))
        text.erase(0, 1);
    if (text.empty())
        return "Etc/UTC";
    const auto identifier = identifierIn(text);
    return identifier.starts_with('/') ? behindLinks(identifier) : identifier;
}

/// For a /etc/localtime that is a copy: the library compares it with every zone's file.
std::string detected() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString identifier;
    std::string text;
    return zone->getID(identifier).toUTF8String(text);
}

std::string resolve() {
    if (const char* variable = std::getenv("TZ"))
        if (auto identifier = identifierOfVariable(variable); isKnownTimeZone(identifier))
            return identifier;
    if (auto identifier = behindLinks(localTimeFile); isKnownTimeZone(identifier))
        return identifier;
    if (auto identifier = detected(); isKnownTimeZone(identifier))
        return identifier;
    return "Etc/UTC";
}

/// What the zone depends on; equal while it cannot have changed.
std::string fingerprint() {
    const char* variable = std::getenv("TZ");
    std::error_code failure;
    const auto target = std::filesystem::canonical(localTimeFile, failure);
    const auto changed = std::filesystem::last_write_time(localTimeFile, failure);
    return std::string(variable ? variable : "(none)") + '\n' + target.string() + '\n' +
           std::to_string(changed.time_since_epoch().count());
}

} // namespace

bool isKnownTimeZone(const std::string& identifier) {
    const std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(identifier)));
    icu::UnicodeString name;
    return zone->getID(name) != icu::UnicodeString(UCAL_UNKNOWN_ZONE_ID);
}

std::string systemTimeZone() {
    static std::string knownFingerprint;
    static std::string zone;
    if (auto current = fingerprint(); zone.empty() || current != knownFingerprint) {
        zone = resolve();
        knownFingerprint = std::move(current);
    }
    return zone;
}

} // namespace orvelle
