#pragma once

#include <string_view>

namespace orvelle {

/// The program's standard output.
class Console {
public:
    virtual ~Console() = default;
    /// One line; the end of the line is added. Any thread.
    virtual void print(std::string_view line) = 0;
};

} // namespace orvelle
