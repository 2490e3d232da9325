#pragma once

#include <string_view>

namespace orvelle {

/// Writes one line to the process's standard output, at once. Control characters become blanks, so
/// that a text from elsewhere stays on the line. Main thread only.
void printLine(std::string_view text);

} // namespace orvelle
