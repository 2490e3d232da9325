#pragma once

#include "Platform/DisplayBrightness.h"

namespace orvelle {

class SimulatedDisplayBrightness : public DisplayBrightness {
public:
    std::optional<std::vector<std::optional<float>>> displays;
    int readCount = 0;

    std::optional<std::vector<std::optional<float>>> levels() override {
        ++readCount;
        return displays;
    }
};

} // namespace orvelle
