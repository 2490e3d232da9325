#pragma once

#include "Platform/DistributedNotificationCenter.h"
#include "Platform/NowPlayingService.h"
#include "Platform/RunningApplications.h"
#include "Platform/ScriptExecutor.h"
#include "Platform/UrlData.h"

namespace orvelle {

/// A machine on which nothing plays.
class SilentNowPlayingService : public NowPlayingService {
public:
    std::variant<NowPlayingFunctions, LoadFailure> load(const std::string&) override {
        return NowPlayingFunctions{
            .getNowPlayingInfo = [](auto answer) { answer(NowPlayingInfo{}); },
            .registerForNotifications = [] {},
            .unregisterForNotifications = [] {},
            .sendCommand = [](std::uint32_t) {},
            .getIsPlaying = [](auto answer) { answer(false); },
        };
    }
    Subscription observe(std::string_view, std::function<void()>) override { return {}; }
};

/// No scripts, no applications that take them, no messages of theirs.
class SilentScriptExecutor : public ScriptExecutor {
public:
    ScriptOutcome execute(const std::string&) override { return ScriptNotMade{}; }
};

class SilentRunningApplications : public RunningApplications {
public:
    bool isRunning(const std::string&) const override { return false; }
};

class SilentDistributedNotificationCenter : public DistributedNotificationCenter {
public:
    Subscription observe(std::string_view, Handler) override { return {}; }
};

class SilentUrlData : public UrlData {
public:
    std::optional<SharedBytes> read(const std::string&, std::size_t) override {
        return std::nullopt;
    }
};

} // namespace orvelle
