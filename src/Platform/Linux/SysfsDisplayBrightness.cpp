#include "Platform/Linux/SysfsDisplayBrightness.h"

#include "Platform/Linux/SmallFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace orvelle {

namespace {

int rank(const std::string& folder) {
    const auto type = readSmallFile(folder + "/type").value_or("");
    if (type.starts_with("firmware"))
        return 2;
    return type.starts_with("platform") ? 1 : 0;
}

std::optional<long long> number(const std::string& path) {
    const auto text = readSmallFile(path);
    return text ? parseNumber(*text) : std::nullopt;
}

/// What was asked of the screen: the kernel remembers it, while the actual brightness can take a
/// slow question to the hardware.
std::optional<float> level(const std::string& folder) {
    const auto value = number(folder + "/brightness");
    const auto highest = number(folder + "/max_brightness");
    if (!value || !highest || *highest <= 0)
        return std::nullopt;
    return std::clamp(static_cast<float>(*value) / static_cast<float>(*highest), 0.0F, 1.0F);
}

} // namespace

std::optional<std::vector<std::optional<float>>> SysfsDisplayBrightness::levels() {
    std::error_code failure;
    std::filesystem::directory_iterator entry(root_, failure);
    if (failure)
        return std::nullopt;
    std::vector<std::pair<int, std::string>> folders;
    for (const std::filesystem::directory_iterator end; !failure && entry != end;
         entry.increment(failure))
        folders.emplace_back(rank(entry->path()), entry->path());
    std::sort(folders.begin(), folders.end());
    std::vector<std::optional<float>> levels;
    for (const auto& [order, folder] : folders)
        levels.push_back(level(folder));
    return levels;
}

} // namespace orvelle
