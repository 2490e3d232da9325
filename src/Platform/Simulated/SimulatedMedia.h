#pragma once

#include "Foundation/Published.h"
#include "Platform/DistributedNotificationCenter.h"
#include "Platform/ImageCodec.h"
#include "Platform/NowPlayingService.h"
#include "Platform/RunningApplications.h"
#include "Platform/ScriptExecutor.h"
#include "Platform/UrlData.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace orvelle {

/// A service that answers at once with what it was told.
class SimulatedNowPlayingService : public NowPlayingService {
public:
    std::optional<NowPlayingInfo> info = NowPlayingInfo{};
    bool isPlaying = false;
    std::vector<std::uint32_t> commands;
    std::vector<bool> registrations; ///< true for each call to register, false for each to end it
    int infoRequests = 0;
    int isPlayingRequests = 0;
    /// Answers wait for `deliverAnswers`.
    bool holdsAnswers = false;
    std::optional<LoadFailure> loadFailure;
    std::string loadedPath;
    /// Called with what is about to be handed out, so that a test can take an entry point away.
    std::function<void(NowPlayingFunctions&)> onLoad;
    /// Called after each command, so that a demonstration can obey.
    std::function<void(SimulatedNowPlayingService&, std::uint32_t)> onCommand;
    /// Called before each reading, so that a demonstration can let the track go on.
    std::function<void(SimulatedNowPlayingService&)> onRead;

    std::variant<NowPlayingFunctions, LoadFailure> load(const std::string& path) override;
    Subscription observe(std::string_view notification, std::function<void()> handler) override {
        return events_[std::string(notification)].observe(std::move(handler));
    }

    void notify(std::string_view notification) { events_[std::string(notification)](); }
    void deliverAnswers();

private:
    void answer(std::function<void()> give);

    std::map<std::string, Event<>> events_;
    std::vector<std::function<void()>> held_;
};

/// Scripts whose outcomes are told beforehand, by their source. Any other one cannot be made.
class SimulatedScriptExecutor : public ScriptExecutor {
public:
    std::map<std::string, ScriptOutcome> outcomes;
    std::vector<std::string> executed;

    ScriptOutcome execute(const std::string& source) override {
        executed.push_back(source);
        const auto found = outcomes.find(source);
        return found == outcomes.end() ? ScriptNotMade{} : found->second;
    }
};

class SimulatedRunningApplications : public RunningApplications {
public:
    std::set<std::string> running;
    bool isRunning(const std::string& bundleIdentifier) const override {
        return running.contains(bundleIdentifier);
    }
};

class SimulatedDistributedNotificationCenter : public DistributedNotificationCenter {
public:
    void post(std::string_view name, const std::optional<NotificationUserInfo>& userInfo) {
        events_[std::string(name)](userInfo);
    }
    Subscription observe(std::string_view name, Handler handler) override {
        return events_[std::string(name)].observe(std::move(handler));
    }

private:
    std::map<std::string, Event<std::optional<NotificationUserInfo>>> events_;
};

class SimulatedUrlData : public UrlData {
public:
    std::map<std::string, SharedBytes> contents;
    std::vector<std::string> reads;

    std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                    std::stop_token stop) override {
        if (stop.stop_requested())
            return std::nullopt;
        reads.push_back(url);
        const auto found = contents.find(url);
        if (found == contents.end() || found->second.view().size() > limit)
            return std::nullopt;
        return found->second;
    }
};

/// Knows its pictures by their bytes.
class SimulatedImageCodec : public ImageCodec {
public:
    std::map<std::string, Image, std::less<>> images;
    int decodeCount = 0;

    std::optional<Image> decode(const SharedBytes& bytes, int) override {
        ++decodeCount;
        const auto found = images.find(bytes.view());
        return found == images.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace orvelle
