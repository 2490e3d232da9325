#include "Platform/Simulated/SimulatedFiles.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace orvelle {

namespace {

struct Kind {
    std::string_view extension;
    std::string_view type;
    std::string_view icon;
    std::array<std::uint8_t, 3> color;
};

constexpr std::string_view plainIcon = "text-x-generic";
constexpr std::string_view folderIcon = "inode-directory";
constexpr std::array<std::uint8_t, 3> plainColor{200, 200, 205};

constexpr Kind kinds[] = {
    {".txt", "text/plain", plainIcon, plainColor},
    {".pdf", "application/pdf", "x-office-document", {214, 84, 76}},
    {".png", "image/png", "image-x-generic", {92, 160, 222}},
    {".mp3", "audio/mpeg", "audio-x-generic", {178, 122, 222}},
    {".zip", "application/zip", "package-x-generic", {214, 168, 92}},
};

const Kind* kindOf(std::string_view name) {
    for (const auto& kind : kinds)
        if (name.ends_with(kind.extension))
            return &kind;
    return nullptr;
}

} // namespace

std::optional<std::string> SimulatedFileCopier::canonicalPath(const std::string& path) const {
    std::string resolved;
    for (std::size_t start = 0; start < path.size();) {
        const auto end = std::min(path.find('/', start), path.size());
        const auto component = path.substr(start, end - start);
        start = end + 1;
        if (component == "..")
            resolved.erase(std::min(resolved.rfind('/'), resolved.size()));
        if (component.empty() || component == "." || component == "..")
            continue;
        resolved += "/" + component;
        if (const auto link = links.find(resolved); link != links.end())
            resolved = link->second;
    }
    return resolved.empty() ? "/" : resolved;
}

std::optional<std::string> SimulatedFileIcons::type(const std::string& name) const {
    const auto* kind = kindOf(name);
    return kind ? std::optional(std::string(kind->type)) : std::nullopt;
}

std::string SimulatedFileIcons::icon(const std::string& name, bool isFolder) const {
    if (isFolder)
        return std::string(folderIcon);
    const auto* kind = kindOf(name);
    return std::string(kind ? kind->icon : plainIcon);
}

Image SimulatedFileIcons::picture(const std::string& icon, int side) const {
    auto color = plainColor;
    for (const auto& kind : kinds)
        if (kind.icon == icon)
            color = kind.color;
    std::vector<std::uint8_t> pixels;
    for (int pixel = 0; pixel < side * side; ++pixel) {
        const int column = pixel % side;
        const bool isOnSheet = column >= side / 6 && column < side - side / 6;
        pixels.insert(pixels.end(), color.begin(), color.end());
        pixels.push_back(isOnSheet ? 255 : 0);
    }
    return Image(side, side, std::move(pixels));
}

} // namespace orvelle
