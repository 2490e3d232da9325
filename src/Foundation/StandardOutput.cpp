#include "Foundation/StandardOutput.h"

#include <algorithm>
#include <iostream>
#include <string>

namespace orvelle {

void printLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    std::cout << line << std::endl;
}

} // namespace orvelle
