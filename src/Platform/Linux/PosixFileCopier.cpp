#include "Platform/Linux/PosixFileCopier.h"

#include "Platform/Linux/Descriptor.h"
#include "Platform/Linux/FileData.h"
#include "Platform/Linux/PrivateFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

namespace orvelle {

namespace {

constexpr int deepestFolder = 100; // of a copied folder; deeper ones are hostile, not files

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::string describe(int error) {
    return std::generic_category().message(error);
}

/// Whether the kernel makes up what is read there, some of it without an end.
bool isMadeUp(int file) {
    struct statfs system {};
    if (fstatfs(file, &system) != 0)
        return false;
    constexpr unsigned long madeUp[] = {PROC_SUPER_MAGIC, SYSFS_MAGIC,        DEBUGFS_MAGIC,
                                        TRACEFS_MAGIC,    CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC,
                                        SECURITYFS_MAGIC};
    return std::ranges::find(madeUp, static_cast<unsigned long>(system.f_type)) != std::end(madeUp);
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether the folder, or one that it lies in, is the source: to copy that would have no end.
bool holds(const struct stat& source, const std::string& folder) {
    Descriptor at(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status {
    }, above{};
    while (at && fstat(at.get(), &status) == 0 && !isSame(status, source)) {
        at = Descriptor(openat(at.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!at || fstat(at.get(), &above) != 0 || isSame(above, status))
            return false; // the root, which is its own parent
    }
    return isSame(status, source);
}

/// Opens what can be copied, without waiting: opening a device can do something, so it is looked at
/// first, and again after, when another may have taken its place. An error's number otherwise.
int openSource(int folder, const char* name, int linkFlag, Descriptor& opened,
               struct stat& status) {
    const auto isCopied = [&] { return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode); };
    if (fstatat(folder, name, &status, linkFlag) != 0)
        return errno;
    if (!isCopied())
        return EINVAL;
    const int noFollow = linkFlag ? O_NOFOLLOW : 0;
    opened =
        Descriptor(openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | noFollow));
    if (!opened || fstat(opened.get(), &status) != 0)
        return errno;
    return isCopied() && !isMadeUp(opened.get()) ? 0 : EINVAL;
}

/// One copy, from its source into the staging folder.
class Copying {
public:
    Copying(const struct stat& shelf, const std::atomic<bool>& cancelled)
        : shelf_(shelf), cancelled_(cancelled) {}

    /// 0 or an error's number.
    int copy(const Descriptor& source, const struct stat& status, int into, const char* name,
             int depth = 0) const {
        if (cancelled_)
            return ECANCELED;
        return S_ISDIR(status.st_mode) ? copyFolder(source, into, name, depth)
                                       : copyFile(source, status, into, name);
    }

private:
    int copyFile(const Descriptor& source, const struct stat& status, int into,
                 const char* name) const {
        const mode_t mode = status.st_mode & S_IXUSR ? 0700 : 0600;
        const Descriptor file(
            openat(into, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file)
            return errno;
        if (const int failure = copyFileData(source.get(), file.get(), cancelled_))
            return failure;
        const timespec times[] = {status.st_atim, status.st_mtim};
        futimens(file.get(), times); // a copy is as old as its source
        return fsync(file.get()) == 0 ? 0 : errno;
    }

    int copyFolder(const Descriptor& source, int into, const char* name, int depth) const {
        struct stat status {};
        if (fstat(source.get(), &status) != 0)
            return errno;
        if (isSame(status, shelf_) || depth > deepestFolder)
            return ELOOP;
        if (mkdirat(into, name, privateFolderMode) != 0)
            return errno;
        const Descriptor copied(
            openat(into, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        Descriptor listed(openat(source.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        const std::unique_ptr<DIR, CloseFolder> entries(listed ? fdopendir(listed.get()) : nullptr);
        if (!copied || !entries)
            return errno;
        listed.release(); // closed with `entries`
        while (const auto* entry = readdir(entries.get())) {
            const std::string_view inside = entry->d_name;
            if (inside == "." || inside == "..")
                continue;
            if (const int failure = copyEntry(source, copied, entry->d_name, depth + 1))
                return failure;
        }
        return fsync(copied.get()) == 0 ? 0 : errno;
    }

    int copyEntry(const Descriptor& from, const Descriptor& into, const char* name,
                  int depth) const {
        struct stat status {};
        Descriptor source;
        const int failure = openSource(from.get(), name, AT_SYMLINK_NOFOLLOW, source, status);
        if (failure == EINVAL)
            return S_ISLNK(status.st_mode) ? copyLink(from, into, name) : 0;
        return failure ? failure : copy(source, status, into.get(), name, depth);
    }

    static int copyLink(const Descriptor& from, const Descriptor& into, const char* name) {
        char target[PATH_MAX];
        const auto length = readlinkat(from.get(), name, target, sizeof target - 1);
        if (length < 0)
            return errno;
        target[length] = '\0';
        return symlinkat(target, into.get(), name) == 0 ? 0 : errno;
    }

    const struct stat& shelf_;
    const std::atomic<bool>& cancelled_;
};

bool removeAll(const std::string& path) {
    std::error_code failure;
    std::filesystem::remove_all(path, failure);
    return !failure;
}

bool isSingleName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name != FileCopier::stagingName &&
           name.find('/') == name.npos && name.find('\0') == name.npos;
}

/// Puts the whole copy in its place. A folder cannot take the place of a file, nor the reverse, so
/// what stands there goes first.
int publish(const std::string& staged, const std::string& destination) {
    if (rename(staged.c_str(), destination.c_str()) == 0)
        return 0;
    if (errno != EISDIR && errno != ENOTDIR && errno != ENOTEMPTY && errno != EEXIST)
        return errno;
    if (!removeAll(destination))
        return EACCES;
    return rename(staged.c_str(), destination.c_str()) == 0 ? 0 : errno;
}

FileCopier::Outcome failed(const std::string& reason) {
    return {reason, {}};
}

} // namespace

bool PosixFileCopier::makeFolder(const std::string& path) {
    return makePrivateFolder(path);
}

std::optional<FileCopier::Info> PosixFileCopier::info(const std::string& path) const {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? std::nullopt : std::optional(Info{});
    const bool isFolder = S_ISDIR(status.st_mode);
    if (!isFolder && !S_ISREG(status.st_mode))
        return std::nullopt;
    return Info{status.st_size, isFolder};
}

std::optional<std::string> PosixFileCopier::canonicalPath(const std::string& path) const {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                               &std::free);
    return resolved ? std::optional<std::string>(resolved.get()) : std::nullopt;
}

FileCopier::Outcome PosixFileCopier::copy(const std::string& source, const std::string& folder,
                                          const std::string& name,
                                          const std::atomic<bool>& cancelled) {
    if (!isSingleName(name))
        return failed("The file's name cannot be used.");
    struct stat status {
    }, shelf{};
    Descriptor opened;
    if (const int failure = openSource(AT_FDCWD, source.c_str(), 0, opened, status))
        return failed(failure == EINVAL ? "It is neither a file nor a folder." : describe(failure));

    if (S_ISDIR(status.st_mode) && holds(status, folder))
        return failed("It holds the shelf itself.");

    const auto staging = folder + "/" + stagingName;
    const auto staged = staging + "/" + name;
    const auto destination = folder + "/" + name;
    if (!removeAll(staging) || !makeFolder(folder) ||
        mkdir(staging.c_str(), privateFolderMode) != 0)
        return failed(describe(errno));
    const Descriptor into(open(staging.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    int failure = !into || stat(folder.c_str(), &shelf) != 0 ? errno : 0;
    if (!failure)
        failure = Copying(shelf, cancelled).copy(opened, status, into.get(), name.c_str());
    if (!failure)
        failure = publish(staged, destination);
    removeAll(staging);
    if (failure)
        return failed(describe(failure));
    return {{}, info(destination).value_or(Info{})};
}

bool PosixFileCopier::remove(const std::string& path) {
    return removeAll(path);
}

} // namespace orvelle
