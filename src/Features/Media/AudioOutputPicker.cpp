#include "Features/Media/AudioOutputPicker.h"

#include "Extensions/ColorTheme.h"
#include "Models/Symbol.h"

namespace orvelle {

AudioOutputPicker::AudioOutputPicker(Platform& platform) : hardware_(platform.audioHardware()) {}

std::vector<AudioOutputDevice> AudioOutputPicker::enumerateOutputDevices(AudioHardware& hardware) {
    std::vector<AudioOutputDevice> outputs;
    for (const auto device : hardware.devices().value_or(std::vector<AudioDeviceID>())) {
        if (hardware.outputStreamCount(device).value_or(0) == 0)
            continue;
        if (auto name = hardware.name(device))
            outputs.push_back({device, *std::move(name)});
    }
    return outputs;
}

void AudioOutputPicker::refreshDevices() {
    devices = enumerateOutputDevices(hardware_);
    currentDeviceID = hardware_.defaultOutputDevice().value_or(0);
}

void AudioOutputPicker::choose(AudioDeviceID device) {
    hardware_.setDefaultOutputDevice(device);
    currentDeviceID = device;
}

StyledSymbol AudioOutputPicker::label() const {
    return {"airplayaudio"_symbol, 14, notchSecondary};
}

std::vector<MenuEntry> AudioOutputPicker::menu() {
    std::vector<MenuEntry> entries;
    for (const auto& [id, name] : devices)
        entries.push_back({name, [this, chosen = id] { choose(chosen); }, id == currentDeviceID});
    return entries;
}

} // namespace orvelle
