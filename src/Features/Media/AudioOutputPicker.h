#pragma once

#include "Platform/AudioHardware.h"
#include "Platform/Platform.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/TextStyle.h"

#include <string>
#include <vector>

namespace orvelle {

struct AudioOutputDevice {
    AudioDeviceID id = 0;
    std::string name;
    bool operator==(const AudioOutputDevice&) const = default;
};

/// A menu of the devices that sound can go to.
class AudioOutputPicker {
public:
    explicit AudioOutputPicker(Platform& platform = Platform::shared());

    std::vector<AudioOutputDevice> devices;
    AudioDeviceID currentDeviceID = 0;

    /// Devices that have an output and a name, in the order of the system.
    static std::vector<AudioOutputDevice> enumerateOutputDevices(AudioHardware& hardware);

    /// When the view appears.
    void refreshDevices();
    void choose(AudioDeviceID device);

    StyledSymbol label() const;
    /// One entry a device, the current one checked.
    std::vector<MenuEntry> menu();

private:
    AudioHardware& hardware_;
};

} // namespace orvelle
