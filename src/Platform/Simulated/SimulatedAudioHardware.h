#pragma once

#include "Foundation/Published.h"
#include "Platform/AudioHardware.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace orvelle {

/// Devices as the test lists them.
class SimulatedAudioHardware : public AudioHardware {
public:
    struct Device {
        AudioDeviceID id = 0;
        std::optional<std::string> name;
        std::optional<std::size_t> outputStreams = 1;
        std::optional<float> volume;
    };
    std::vector<Device> list;
    bool listReadable = true;
    std::optional<AudioDeviceID> defaultOutput;
    bool acceptsListeners = true;
    /// Listeners to the default output go on with the next default one.
    bool listenersFollowDefault = false;
    std::vector<std::pair<AudioDeviceID, float>> volumeWrites;

    /// As somebody else does, with one event to the device's listeners.
    void changeVolume(AudioDeviceID device, float volume) {
        if (auto* found = find(device))
            found->volume = volume;
        listeners_[device]();
        if (device == defaultOutput)
            followers_();
    }

    std::optional<std::vector<AudioDeviceID>> devices() override {
        if (!listReadable)
            return std::nullopt;
        std::vector<AudioDeviceID> ids;
        for (const auto& device : list)
            ids.push_back(device.id);
        return ids;
    }
    std::optional<std::size_t> outputStreamCount(AudioDeviceID device) override {
        const auto* found = find(device);
        return found ? found->outputStreams : std::nullopt;
    }
    std::optional<std::string> name(AudioDeviceID device) override {
        const auto* found = find(device);
        return found ? found->name : std::nullopt;
    }
    std::optional<AudioDeviceID> defaultOutputDevice() override { return defaultOutput; }
    void setDefaultOutputDevice(AudioDeviceID device) override {
        const auto before = defaultOutput ? volume(*defaultOutput) : std::nullopt;
        defaultOutput = device;
        if (volume(device) != before)
            followers_();
    }
    std::optional<float> volume(AudioDeviceID device) override {
        const auto* found = find(device);
        return found ? found->volume : std::nullopt;
    }
    void setVolume(AudioDeviceID device, float volume) override {
        volumeWrites.emplace_back(device, volume);
        changeVolume(device, volume);
    }
    Subscription addVolumeListener(AudioDeviceID device, std::function<void()> changed) override {
        if (!acceptsListeners)
            return {};
        auto& event =
            listenersFollowDefault && device == defaultOutput ? followers_ : listeners_[device];
        return event.observe(std::move(changed));
    }

private:
    Device* find(AudioDeviceID device) {
        const auto found = std::find_if(list.begin(), list.end(),
                                        [device](const Device& each) { return each.id == device; });
        return found == list.end() ? nullptr : &*found;
    }

    std::map<AudioDeviceID, Event<>> listeners_;
    Event<> followers_;
};

} // namespace orvelle
