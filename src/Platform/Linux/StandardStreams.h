#pragma once

#include <string_view>

namespace orvelle {

/// Gives the null device to those of the three standard streams that the starter left closed, lest
/// the next file or connection take the place of one and be written to; and lets writing to a
/// reader that has gone, or beyond the limit of a file's size, fail in place of ending the process.
/// Once, before anything is opened.
void secureStandardStreams();

/// Writes the line in one piece. It is lost when the stream cannot take it at once: nothing waits
/// for the reader of a full pipe or a stopped terminal.
void writeOrLose(int descriptor, std::string_view line);

} // namespace orvelle
