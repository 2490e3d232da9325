#pragma once

#include "Platform/Console.h"

#include <cstdio>
#include <string>

namespace orvelle {

class StandardConsole : public Console {
public:
    void print(std::string_view line) override {
        const auto text = std::string(line) + '\n';
        std::fwrite(text.data(), 1, text.size(), stdout); // at once, so that no line is torn
        std::fflush(stdout);
    }
};

} // namespace orvelle
