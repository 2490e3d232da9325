#pragma once

#include "Foundation/Date.h"
#include "Platform/Linux/PulseLoop.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/volume.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// An output of the sound server.
struct PulseSink {
    std::string name;        ///< the server's, the same after a restart
    std::string description; ///< for people
    float volume;            ///< 0 to 1, of the loudest channel

    bool operator==(const PulseSink&) const = default;
};

struct PulseState {
    std::vector<PulseSink> sinks;
    std::string defaultSink; ///< empty while there is none

    bool operator==(const PulseState&) const = default;
};

/// A connection to the sound server that comes back when the server does. It never starts one.
class PulseClient {
public:
    /// How long until the first attempt to connect again; each failure doubles it.
    static constexpr Seconds firstRetryDelay = 0.5;
    static constexpr Seconds longestRetryDelay = 8;

    /// `server` is an address in the library's form, empty for the user's server. `changed` is
    /// called on the client's own thread with each new state; the state of no server is empty.
    PulseClient(std::string server, std::function<void(const PulseState&)> changed);
    ~PulseClient();

    /// Both do nothing for a sink that is not there. Any thread.
    void setDefaultSink(std::string name);
    void setVolume(std::string name, float volume);

private:
    using Channels = std::map<std::string, pa_cvolume>; ///< each sink's volume with its balance
    struct Unreference {
        void operator()(pa_context* context) const;
    };

    void connect();
    void stateChanged();
    void lost();
    void retry();
    void refresh();
    void hear(const pa_server_info* info);
    void hear(const pa_sink_info* info);
    void finishRefresh();
    void publish(PulseState state);

    // All of it belongs to the loop's thread.
    std::string server_;
    std::function<void(const PulseState&)> changed_;
    std::unique_ptr<pa_context, Unreference> context_;
    Seconds retryDelay_ = firstRetryDelay;
    pa_time_event* retry_ = nullptr;
    bool refreshing_ = false;
    bool outdated_ = false; ///< something changed during a refresh
    PulseState gathered_;
    Channels gatheredChannels_;
    PulseState published_;
    Channels channels_;
    PulseLoop loop_; ///< dies first
};

} // namespace orvelle
