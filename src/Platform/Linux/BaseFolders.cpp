#include "Platform/Linux/BaseFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace orvelle {

namespace {

std::string absoluteVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && value[0] == '/' ? value : "";
}

} // namespace

std::string homeFolder() {
    if (auto home = absoluteVariable("HOME"); !home.empty())
        return home;
    const auto* entry = getpwuid(getuid());
    return entry && entry->pw_dir && entry->pw_dir[0] == '/' ? entry->pw_dir : "/";
}

std::string baseFolder(const char* variable, const char* underHome) {
    if (auto folder = absoluteVariable(variable); !folder.empty())
        return folder;
    return (std::filesystem::path(homeFolder()) / underHome).string();
}

} // namespace orvelle
