#pragma once

#include "Platform/Sound.h"

#include <memory>

namespace orvelle {

/// The sounds of the user's sound theme. Playing happens on a thread of its own, since the sound
/// server may take its time; one that hangs costs that thread and the sounds that follow.
class CanberraSound : public Sound {
public:
    CanberraSound();
    ~CanberraSound() override;

    void play(std::string_view name) override;

private:
    class Player;
    std::shared_ptr<Player> player_; ///< shared with the thread, which may outlive this object
};

} // namespace orvelle
