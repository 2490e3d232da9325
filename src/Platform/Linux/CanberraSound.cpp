#include "Platform/Linux/CanberraSound.h"

#include <canberra.h>

#include <atomic>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace orvelle {

namespace {

/// Another platform's sounds by their names, and what stands for them in sound themes.
constexpr std::pair<std::string_view, const char*> themeSounds[] = {{"Glass", "complete"}};

} // namespace

class CanberraSound::Player {
public:
    ~Player() {
        if (context_)
            ca_context_destroy(context_);
    }

    /// False while another thread is at it.
    bool claim() { return !isBusy_.exchange(true); }
    void release() { isBusy_ = false; }
    void play(const char* event) {
        if (!context_ && ca_context_create(&context_) != CA_SUCCESS)
            return;
        ca_context_change_props(context_, CA_PROP_APPLICATION_NAME, "Orvelle",
                                CA_PROP_APPLICATION_ID, "orvelle", nullptr);
        ca_context_play(context_, 0, CA_PROP_EVENT_ID, event, CA_PROP_MEDIA_ROLE, "event", nullptr);
    }

private:
    std::atomic<bool> isBusy_ = false;
    ca_context* context_ = nullptr;
};

CanberraSound::CanberraSound() : player_(std::make_shared<Player>()) {}

CanberraSound::~CanberraSound() = default;

void CanberraSound::play(std::string_view name) {
    const char* event = nullptr;
    for (const auto& [known, themeName] : themeSounds)
        if (known == name)
            event = themeName;
    if (!event || !player_->claim())
        return;
    try {
        std::thread([player = player_, event] {
            player->play(event);
            player->release();
        }).detach();
    } catch (const std::system_error&) {
        player_->release(); // no thread to be had, no sound
    }
}

} // namespace orvelle
