#include "Platform/Linux/PrivateFolder.h"

#include "Platform/Linux/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

namespace orvelle {

int syncFolder(const std::string& path) {
    const Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder)
        return errno == EACCES ? 0 : errno; // one may write to a folder that one cannot list
    if (fsync(folder.get()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS)
        return 0;
    return errno;
}

bool makePrivateFolder(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        errno = ENOTDIR;
        return S_ISDIR(status.st_mode);
    }
    if (errno != ENOENT)
        return false;
    const auto parent = std::filesystem::path(path).parent_path().string();
    if (parent == path || !makePrivateFolder(parent))
        return false;
    if (mkdir(path.c_str(), privateFolderMode) != 0 && errno != EEXIST)
        return false;
    errno = syncFolder(parent);
    return errno == 0;
}

} // namespace orvelle
