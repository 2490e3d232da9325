#include "Features/UpdateChecker/UpdateChecker.h"

#include "App/Constants.h"
#include "Features/UpdateChecker/VersionManifest.h"
#include "Foundation/Url.h"
#include "Platform/HttpClient.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace orvelle {

namespace {

constexpr Seconds manifestTimeout = 15;

bool isAbsolute(const std::string& url) {
    constexpr std::string_view scheme = "http";
    const auto toLower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return url.size() >= scheme.size() &&
           std::equal(scheme.begin(), scheme.end(), url.begin(),
                      [&](char expected, char letter) { return expected == toLower(letter); });
}

} // namespace

UpdateChecker::UpdateChecker(Platform& platform)
    : platform_(platform), log_(platform.log(), "UpdateChecker") {}

void UpdateChecker::start() {
    check();
    timer = platform_.runLoop().every(checkInterval, [this] { check(); });
}

void UpdateChecker::check(std::function<void()> done) {
    isChecking = true;
    const auto finish = [this, done = std::move(done)] {
        isChecking = false;
        if (done)
            done();
    };
    HttpRequest request{.url = roots_.site + "/orvelle.json",
                        .timeout = manifestTimeout,
                        .cachePolicy = HttpCachePolicy::reloadIgnoringLocalCache};
    if (!Url::isValid(request.url)) {
        log_.error("Invalid manifest URL");
        finish();
        return;
    }
    requests_.start([&](auto finished) {
        return platform_.httpClient().get(std::move(request),
                                          [this, finish, finished](const HttpReply& reply) {
                                              finished();
                                              received(reply);
                                              finish();
                                          });
    });
}

void UpdateChecker::received(const HttpReply& reply) {
    if (reply.error) {
        log_.error("Update check failed: " + *reply.error);
        return;
    }
    if (reply.status != HttpReply::statusOK) {
        log_.error("Manifest fetch failed with non-200 status");
        return;
    }
    const auto manifest = VersionManifest::decode(reply.body);
    if (!manifest.record) {
        log_.error("Update check failed: " + manifest.error);
        return;
    }
    hasChecked = true;
    if (isNewerVersion(manifest.record->version, AppConstants::version))
        publishUpdate(manifest.record->version, manifest.record->notes, manifest.record->url);
    else
        publishNoUpdate();
}

void UpdateChecker::publishUpdate(const std::string& version, const std::string& notes,
                                  std::string url) {
    latestVersion = version;
    releaseNotes = notes;
    if (!isAbsolute(url))
        url = roots_.site + "/" + url;
    downloadURL = Url::isValid(url) ? std::optional(url) : std::nullopt;
    updateAvailable = true;
    log_.info("Update available: v" + version);
}

void UpdateChecker::publishNoUpdate() {
    updateAvailable = false;
    latestVersion = std::nullopt;
    releaseNotes = std::nullopt;
    downloadURL = std::nullopt;
    log_.info("App is up to date (v" + std::string(AppConstants::version) + ")");
}

} // namespace orvelle
