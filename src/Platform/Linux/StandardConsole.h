#pragma once

#include "Platform/Console.h"

#include <unistd.h>

namespace orvelle {

/// Writes each line at once. Control characters become blanks, so that a text from elsewhere stays
/// on its line; what nobody reads is lost.
class StandardConsole : public Console {
public:
    explicit StandardConsole(int descriptor = STDOUT_FILENO) : descriptor_(descriptor) {}
    void print(std::string_view line) override;

private:
    const int descriptor_;
};

} // namespace orvelle
