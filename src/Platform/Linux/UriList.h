#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The addresses of this machine's files in a text/uri-list of another program.
std::vector<std::string> filesOf(std::string_view uriList);

} // namespace orvelle
