#include "Platform/Linux/StandardConsole.h"

#include "Platform/Linux/StandardStreams.h"

#include <algorithm>
#include <string>

namespace orvelle {

void StandardConsole::print(std::string_view line) {
    std::string text(line);
    std::ranges::replace_if(
        text, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    writeOrLose(descriptor_, text + '\n');
}

} // namespace orvelle
