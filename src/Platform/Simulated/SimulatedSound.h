#pragma once

#include "Platform/Sound.h"

#include <string>
#include <vector>

namespace orvelle {

class SimulatedSound : public Sound {
public:
    std::vector<std::string> played;
    void play(std::string_view name) override { played.emplace_back(name); }
};

} // namespace orvelle
