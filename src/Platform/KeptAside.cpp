#include "Platform/KeptAside.h"

#include <charconv>
#include <cstdint>
#include <map>
#include <string_view>

namespace orvelle {

namespace {

constexpr std::string_view suffix = ".corrupt";

/// The number of a kept copy of `name`, 0 for one without a number, as earlier versions kept it.
std::optional<std::uint64_t> copyNumber(std::string_view copy, std::string_view name) {
    if (!copy.starts_with(name) || !copy.substr(name.size()).starts_with(suffix))
        return std::nullopt;
    copy.remove_prefix(name.size() + suffix.size());
    if (copy.empty())
        return 0;
    std::uint32_t number = 0;
    const auto* end = copy.data() + copy.size();
    const auto [stop, error] = std::from_chars(copy.data() + 1, end, number);
    if (copy.front() != '.' || error != std::errc{} || stop != end)
        return std::nullopt;
    return number;
}

} // namespace

KeptAside keepAside(FileSystem& files, const std::string& path) {
    const auto slash = path.rfind('/');
    const auto folder = path.substr(0, slash);
    const auto name = path.substr(slash + 1);
    std::map<std::uint64_t, std::string> copies;
    for (const auto& each : files.names(folder))
        if (const auto number = copyNumber(each, name))
            copies.emplace(*number, each);

    const auto number = copies.empty() ? 1 : copies.rbegin()->first + 1;
    const auto copy = name + std::string(suffix) + "." + std::to_string(number);
    const auto moved = files.move(path, folder + "/" + copy);
    if (!moved)
        return {moved, {}};
    for (copies.emplace(number, copy); copies.size() > keptCopies; copies.erase(copies.begin()))
        (void)files.remove(folder + "/" + copies.begin()->second); // only tidies up
    return {{}, copy};
}

} // namespace orvelle
