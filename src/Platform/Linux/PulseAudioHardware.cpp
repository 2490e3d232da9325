#include "Platform/Linux/PulseAudioHardware.h"

#include <algorithm>
#include <utility>

namespace orvelle {

PulseAudioHardware::PulseAudioHardware(RunLoop& runLoop, std::string server)
    : runLoop_(runLoop), server_(std::move(server)) {}

PulseClient& PulseAudioHardware::client() {
    if (!client_)
        client_ = std::make_unique<PulseClient>(
            server_, [this, guard = lifetime_.guard([this](PulseState state) {
                take(std::move(state));
            })](const PulseState& state) {
                runLoop_.post([guard, state]() mutable { guard(std::move(state)); });
            });
    return *client_;
}

std::optional<std::vector<AudioDeviceID>> PulseAudioHardware::devices() {
    client();
    std::vector<AudioDeviceID> list;
    for (const auto& sink : state_.sinks)
        list.push_back(number(sink.name));
    return list;
}

std::optional<std::size_t> PulseAudioHardware::outputStreamCount(AudioDeviceID device) {
    return find(device) ? std::optional<std::size_t>(1) : std::nullopt;
}

std::optional<std::string> PulseAudioHardware::name(AudioDeviceID device) {
    const auto* sink = find(device);
    return sink ? std::optional(sink->description) : std::nullopt;
}

std::optional<AudioDeviceID> PulseAudioHardware::defaultOutputDevice() {
    client();
    if (defaultOutput_ == 0) {
        names_.emplace_back();
        defaultOutput_ = static_cast<AudioDeviceID>(names_.size());
    }
    return defaultOutput_;
}

void PulseAudioHardware::setDefaultOutputDevice(AudioDeviceID device) {
    if (const auto* sink = find(device))
        client().setDefaultSink(sink->name);
}

std::optional<float> PulseAudioHardware::volume(AudioDeviceID device) {
    const auto* sink = find(device);
    return sink ? std::optional(sink->volume) : std::nullopt;
}

void PulseAudioHardware::setVolume(AudioDeviceID device, float volume) {
    if (const auto* sink = find(device))
        client().setVolume(sink->name, volume);
}

Subscription PulseAudioHardware::addVolumeListener(AudioDeviceID device,
                                                   std::function<void()> changed) {
    if (device == defaultOutputDevice())
        return listenersToOutputInUse_.observe(std::move(changed));
    return listeners_[device].observe(std::move(changed));
}

void PulseAudioHardware::take(PulseState state) {
    std::map<AudioDeviceID, std::optional<float>> before;
    for (const auto& [device, listeners] : listeners_)
        before[device] = volume(device);
    const auto inUseBefore = volume(defaultOutput_);
    state_ = std::move(state);
    if (!state_.defaultSink.empty()) {
        if (defaultOutput_ != 0 && names_[defaultOutput_ - 1].empty())
            names_[defaultOutput_ - 1] = state_.defaultSink;
        defaultOutput_ = number(state_.defaultSink);
    }
    for (const auto& [device, earlier] : before)
        if (volume(device) != earlier)
            listeners_[device]();
    if (volume(defaultOutput_) != inUseBefore)
        listenersToOutputInUse_();
}

AudioDeviceID PulseAudioHardware::number(const std::string& name) {
    const auto found = std::find(names_.begin(), names_.end(), name);
    const auto index = found - names_.begin();
    if (found == names_.end())
        names_.push_back(name);
    return static_cast<AudioDeviceID>(index + 1);
}

const PulseSink* PulseAudioHardware::find(AudioDeviceID device) const {
    if (device == 0 || device > names_.size())
        return nullptr;
    const auto& name = names_[device - 1];
    const auto sink = std::find_if(state_.sinks.begin(), state_.sinks.end(),
                                   [&](const PulseSink& each) { return each.name == name; });
    return sink == state_.sinks.end() ? nullptr : &*sink;
}

} // namespace orvelle
