#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle::FileURL {

/// The address of an absolute path, any bytes: "file:///tmp/a%20b".
std::string ofPath(std::string_view path);

/// The absolute path that an address of this machine's files names, as the bytes that the file
/// system has. `hostName` is this machine's name, which old programs write into the address. None
/// for another scheme or machine, a relative path, a broken escape, a NUL, or what is longer than
/// any path.
std::optional<std::string> path(std::string_view url, std::string_view hostName = {});

/// The addresses of this machine's files in a text of the type text/uri-list (RFC 2483), in its
/// order, written as `ofPath` writes them, and not more than `most`. Other lines are left out.
std::vector<std::string> list(std::string_view uriList, std::string_view hostName = {},
                              std::size_t most = std::string_view::npos);

/// The name of the file that a path leads to, as it stands; empty for "/".
std::string lastPathComponent(std::string_view path);

} // namespace orvelle::FileURL
