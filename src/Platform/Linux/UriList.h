#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The addresses of this machine's files in a text/uri-list of another program, the first thousand:
/// nobody wants more at once, and some offer them by the hundred thousand.
std::vector<std::string> filesOf(std::string_view uriList);

} // namespace orvelle
