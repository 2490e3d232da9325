#pragma once

#include "Foundation/Published.h"
#include "Platform/AudioHardware.h"
#include "Platform/Linux/PulseClient.h"
#include "Platform/RunLoop.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// The outputs of PulseAudio, or of what speaks its protocol. A device keeps its number under its
/// name, so that listeners live through restarts of the server. Who listens to the output in use
/// goes on with the next one when that changes.
class PulseAudioHardware : public AudioHardware {
public:
    /// Nothing is asked of the server before the first question; see `PulseClient` for `server`.
    explicit PulseAudioHardware(RunLoop& runLoop, std::string server = {});

    std::optional<std::vector<AudioDeviceID>> devices() override;
    std::optional<std::size_t> outputStreamCount(AudioDeviceID device) override;
    std::optional<std::string> name(AudioDeviceID device) override;
    std::optional<AudioDeviceID> defaultOutputDevice() override;
    void setDefaultOutputDevice(AudioDeviceID device) override;
    std::optional<float> volume(AudioDeviceID device) override;
    void setVolume(AudioDeviceID device, float volume) override;
    Subscription addVolumeListener(AudioDeviceID device, std::function<void()> changed) override;

private:
    PulseClient& client();
    void take(PulseState state);
    AudioDeviceID number(const std::string& name);
    const PulseSink* find(AudioDeviceID device) const;

    RunLoop& runLoop_;
    std::string server_;
    PulseState state_;
    std::vector<std::string> names_;  ///< the device with the number 1 comes first; empty: unnamed
    AudioDeviceID defaultOutput_ = 0; ///< the last one known, or the number of the first to come
    std::map<AudioDeviceID, Event<>> listeners_;
    Event<> listenersToOutputInUse_;
    Lifetime lifetime_;
    std::unique_ptr<PulseClient> client_; ///< its thread ends before anything else here
};

} // namespace orvelle
