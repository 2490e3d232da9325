#include "faults/FaultyDisk.h"

#include "Support/TemporaryFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <filesystem>

namespace fs = std::filesystem;

extern "C" {
int __real_open(const char* path, int flags, ...);
int __real_openat(int folder, const char* path, int flags, ...);
int __real_mkostemp(char* name, int flags);
ssize_t __real_read(int file, void* bytes, size_t size);
ssize_t __real_write(int file, const void* bytes, size_t size);
ssize_t __real_pwrite(int file, const void* bytes, size_t size, off_t offset);
int __real_ftruncate(int file, off_t length);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_mkdir(const char* path, mode_t mode);
int __real_mkdirat(int folder, const char* path, mode_t mode);
int __real_stat(const char* path, struct stat* status);
int __real_lstat(const char* path, struct stat* status);
int __real_access(const char* path, int mode);
}

namespace orvelle {

namespace {

ino_t numberOf(const std::string& path) {
    struct stat status {};
    return __real_lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

FaultyDisk& FaultyDisk::shared() {
    static FaultyDisk disk;
    return disk;
}

void FaultyDisk::arm(std::string folder, Fault fault, int failingCall) {
    disarm();
    folder_ = std::move(folder);
    fault_ = fault;
    failingCall_ = failingCall;
    callCount_ = 0;
    hasFailed_ = isRepaired_ = isCut_ = cutsNextWrite_ = false;
    synced_ = latest_ = {};
    root_ = numberOf(folder_);
    recordAll(folder_, synced_);
    isArmed_ = true;
}

void FaultyDisk::disarm() {
    isArmed_ = false;
    for (const int file : held_)
        close(file);
    held_.clear();
}

bool FaultyDisk::isOurs(const std::string& path) const {
    return isArmed_ && (path == folder_ || path.starts_with(folder_ + "/"));
}

int FaultyDisk::errorOf(Kind kind, const std::string& path) {
    return isOurs(path) ? error(kind) : 0;
}

int FaultyDisk::errorOf(Kind kind, int descriptor) {
    return errorOf(kind, pathOf(descriptor));
}

int FaultyDisk::error(Kind kind) {
    ++callCount_;
    const bool isNow = callCount_ == failingCall_;
    const bool changes = kind != Kind::reads && kind != Kind::looks && kind != Kind::opens;
    switch (fault_) {
    case Fault::none:
        return 0;
    case Fault::noSpace:
        if (callCount_ < failingCall_ || isRepaired_ || !changes || kind == Kind::removes)
            return 0;
        if (kind == Kind::writes && !hasFailed_) {
            hasFailed_ = cutsNextWrite_ = true;
            return 0;
        }
        hasFailed_ = true;
        return ENOSPC;
    case Fault::inputOutput:
        hasFailed_ = hasFailed_ || isNow;
        return isNow ? EIO : 0;
    case Fault::denied:
        hasFailed_ = hasFailed_ || isNow;
        return isNow && kind != Kind::writes && kind != Kind::syncs && kind != Kind::reads ? EACCES
                                                                                           : 0;
    case Fault::shortWrite:
        hasFailed_ = hasFailed_ || isNow;
        cutsNextWrite_ = isNow && kind == Kind::writes;
        return 0;
    case Fault::powerCut:
        if (isNow) {
            recordAll(folder_, latest_);
            hasFailed_ = isCut_ = true;
        }
        return isCut_ ? EIO : 0;
    }
    return 0;
}

std::size_t FaultyDisk::taken(int descriptor, std::size_t size) {
    if (!cutsNextWrite_ || size < 2 || !isOurs(pathOf(descriptor)))
        return size;
    cutsNextWrite_ = false;
    return size / 2;
}

void FaultyDisk::synced(int descriptor) {
    if (const auto path = pathOf(descriptor); isOurs(path))
        record(path, synced_);
}

void FaultyDisk::made(const std::string& path) {
    if (!isOurs(path))
        return;
    // Held open, a file keeps its number also when it is removed.
    if (const int file = __real_open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW); file >= 0)
        held_.insert(file);
}

std::string FaultyDisk::pathOf(int descriptor) {
    std::error_code failure;
    return fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor), failure).string();
}

void FaultyDisk::record(const std::string& path, Disk& disk) {
    const auto number = numberOf(path);
    std::error_code failure;
    if (!fs::is_directory(path, failure)) {
        disk.files[number] = fileBytes(path);
        return;
    }
    auto& listing = disk.folders[number];
    listing.clear();
    for (const auto& entry : fs::directory_iterator(path, failure))
        listing[entry.path().filename().string()] = numberOf(entry.path().string());
}

void FaultyDisk::recordAll(const std::string& path, Disk& disk) {
    record(path, disk);
    if (!isArmed_)
        made(path);
    std::error_code failure;
    for (const auto& entry : fs::directory_iterator(path, failure)) {
        if (entry.is_directory(failure))
            recordAll(entry.path().string(), disk);
        else
            record(entry.path().string(), disk);
    }
}

void FaultyDisk::powerUp(Names names, Bytes bytes) {
    isArmed_ = false;
    for (const auto& entry : fs::directory_iterator(folder_))
        fs::remove_all(entry.path());
    build(folder_, root_, names, bytes);
}

void FaultyDisk::build(const std::string& path, ino_t folder, Names names, Bytes bytes) const {
    const auto& known = names == Names::synced ? synced_ : latest_;
    const auto listing = known.folders.find(folder);
    if (listing == known.folders.end())
        return;
    for (const auto& [name, number] : listing->second) {
        const auto inside = path + "/" + name;
        const bool isFolder = latest_.folders.contains(number) || synced_.folders.contains(number);
        if (isFolder) {
            mkdir(inside.c_str(), 0700);
            build(inside, number, names, bytes);
            continue;
        }
        const auto latest = latest_.files.find(number);
        const auto synced = synced_.files.find(number);
        if (bytes == Bytes::latest && latest != latest_.files.end())
            writeFile(inside, latest->second);
        else
            writeFile(inside, synced == synced_.files.end() ? "" : synced->second);
    }
}

} // namespace orvelle

namespace {

using orvelle::FaultyDisk;
using Kind = FaultyDisk::Kind;

/// Fails with the error that the disk has for a call, or makes the call.
template <class Place, class Call>
auto through(Kind kind, const Place& place, Call call) -> decltype(call()) {
    if (const int error = FaultyDisk::shared().errorOf(kind, place)) {
        errno = error;
        return -1;
    }
    return call();
}

std::string below(int folder, const char* name) {
    return *name == '/' ? name : FaultyDisk::pathOf(folder) + "/" + name;
}

int opened(const std::string& path, int flags, int file) {
    const int error = errno;
    if (file >= 0 && (flags & O_CREAT))
        FaultyDisk::shared().made(path);
    errno = error;
    return file;
}

mode_t modeOf(int flags, va_list arguments) {
    return flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

int __wrap_open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = modeOf(flags, arguments);
    va_end(arguments);
    return opened(path, flags,
                  through(flags & O_CREAT ? Kind::makes : Kind::opens, std::string(path),
                          [&] { return __real_open(path, flags, mode); }));
}

int __wrap_openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = modeOf(flags, arguments);
    va_end(arguments);
    const auto whole = below(folder, path);
    return opened(whole, flags, through(flags & O_CREAT ? Kind::makes : Kind::opens, whole, [&] {
                      return __real_openat(folder, path, flags, mode);
                  }));
}

int __wrap_mkostemp(char* name, int flags) {
    const int file =
        through(Kind::makes, std::string(name), [&] { return __real_mkostemp(name, flags); });
    return opened(name, O_CREAT, file);
}

ssize_t __wrap_read(int file, void* bytes, size_t size) {
    return through(Kind::reads, file, [&] { return __real_read(file, bytes, size); });
}

ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    return through(Kind::writes, file, [&] {
        return __real_write(file, bytes, FaultyDisk::shared().taken(file, size));
    });
}

ssize_t __wrap_pwrite(int file, const void* bytes, size_t size, off_t offset) {
    return through(Kind::writes, file, [&] {
        return __real_pwrite(file, bytes, FaultyDisk::shared().taken(file, size), offset);
    });
}

int __wrap_ftruncate(int file, off_t length) {
    return through(Kind::writes, file, [&] { return __real_ftruncate(file, length); });
}

int __wrap_fsync(int file) {
    return through(Kind::syncs, file, [&] {
        const int result = __real_fsync(file);
        FaultyDisk::shared().synced(file);
        return result;
    });
}

int __wrap_rename(const char* from, const char* to) {
    return through(Kind::renames, std::string(from), [&] { return __real_rename(from, to); });
}

int __wrap_unlink(const char* path) {
    return through(Kind::removes, std::string(path), [&] { return __real_unlink(path); });
}

int __wrap_mkdir(const char* path, mode_t mode) {
    const int result =
        through(Kind::makes, std::string(path), [&] { return __real_mkdir(path, mode); });
    return result == 0 ? opened(path, O_CREAT, 0) : result;
}

int __wrap_mkdirat(int folder, const char* path, mode_t mode) {
    const auto whole = below(folder, path);
    const int result =
        through(Kind::makes, whole, [&] { return __real_mkdirat(folder, path, mode); });
    return result == 0 ? opened(whole, O_CREAT, 0) : result;
}

int __wrap_stat(const char* path, struct stat* status) {
    return through(Kind::looks, std::string(path), [&] { return __real_stat(path, status); });
}

int __wrap_lstat(const char* path, struct stat* status) {
    return through(Kind::looks, std::string(path), [&] { return __real_lstat(path, status); });
}

int __wrap_access(const char* path, int mode) {
    return through(Kind::looks, std::string(path), [&] { return __real_access(path, mode); });
}

} // extern "C"
