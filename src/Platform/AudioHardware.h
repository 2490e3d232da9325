#pragma once

#include "Foundation/Subscription.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// Names one device for the life of the process, through restarts of the sound server as well.
using AudioDeviceID = std::uint32_t;

/// The sound devices and their volumes. Main thread only; every answer is given on the spot, from
/// what is known of the sound server at that moment. Without a server there are no devices.
class AudioHardware {
public:
    virtual ~AudioHardware() = default;

    /// Of outputs and inputs alike, in the order of the system; none when the list cannot be read.
    virtual std::optional<std::vector<AudioDeviceID>> devices() = 0;
    /// 0 for a device that only records; none when the device cannot say.
    virtual std::optional<std::size_t> outputStreamCount(AudioDeviceID device) = 0;
    /// As people know it; none when the device cannot say.
    virtual std::optional<std::string> name(AudioDeviceID device) = 0;

    /// Where sound goes. A system that has not told yet may answer with the number that the device
    /// will get; everything else about that device is unknown until then. None when it cannot be
    /// read.
    virtual std::optional<AudioDeviceID> defaultOutputDevice() = 0;
    /// Nothing happens for a device that has gone.
    virtual void setDefaultOutputDevice(AudioDeviceID device) = 0;

    /// 0 to 1, muted or not; none when the device has no volume or is unknown.
    virtual std::optional<float> volume(AudioDeviceID device) = 0;
    /// 0 to 1. Nothing happens for a device that has gone or has no volume.
    virtual void setVolume(AudioDeviceID device, float volume) = 0;
    /// Called after each change of the device's volume, whoever made it, and when it has become
    /// known. Where outputs are plugged in and out all day, a listener to the default output may go
    /// on with the next default one: then it is also called when that has another volume. An empty
    /// handle when the device cannot be listened to.
    [[nodiscard]] virtual Subscription addVolumeListener(AudioDeviceID device,
                                                         std::function<void()> changed) = 0;
};

} // namespace orvelle
