#include "Platform/Linux/PrivateFolder.h"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

namespace orvelle {

bool makePrivateFolder(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode);
    const auto parent = std::filesystem::path(path).parent_path().string();
    if (parent == path || !makePrivateFolder(parent))
        return false;
    return mkdir(path.c_str(), privateFolderMode) == 0 || errno == EEXIST;
}

} // namespace orvelle
