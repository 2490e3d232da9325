#include "Platform/Linux/PosixFileSystem.h"

#include "Platform/Linux/BaseFolders.h"
#include "Platform/Linux/Descriptor.h"
#include "Platform/Linux/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <thread>

namespace orvelle {

namespace {

std::string parentOf(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

/// Where a write has to go so that symbolic links stay; links that go round stay unresolved, and
/// opening them fails.
std::string linkTarget(std::string path) {
    constexpr int maximumLinks = 40; // as the kernel follows
    std::error_code failure;
    for (int count = 0; count < maximumLinks; ++count) {
        const auto target = std::filesystem::read_symlink(path, failure);
        if (failure)
            break;
        path = (std::filesystem::path(path).parent_path() / target).string();
    }
    return path;
}

WriteFailure failureOf(int error) {
    switch (error) {
    case ENOSPC:
        return WriteFailure::full;
    case EDQUOT:
        return WriteFailure::overQuota;
    case EROFS:
        return WriteFailure::readOnly;
    case EACCES:
    case EPERM:
        return WriteFailure::denied;
    case EFBIG:
        return WriteFailure::tooLarge;
    case EISDIR:
    case ELOOP:
    case ENOTDIR:
        return WriteFailure::obstructed;
    default:
        return WriteFailure::broken;
    }
}

/// Why a file must not be replaced, 0 when it may.
int replacementError(const std::string& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0)
        return errno == ENOENT ? 0 : errno;
    constexpr mode_t writable = S_IWUSR | S_IWGRP | S_IWOTH; // access() lets root write all
    if (!S_ISREG(status.st_mode))
        return S_ISLNK(status.st_mode) ? ELOOP : EISDIR;
    if ((status.st_mode & writable) == 0)
        return EACCES;
    return access(path.c_str(), W_OK) == 0 ? 0 : errno;
}

constexpr std::string_view chance = "XXXXXX";

/// What the name of a file that is being written begins with; six characters of chance follow.
std::string temporaryPrefix(const std::string& path) {
    return "." + std::filesystem::path(path).filename().string() + ".";
}

/// Opens a new file beside `path` and gives its name. It is locked: what nobody has locked was left
/// by a process that was killed.
Descriptor makeTemporary(const std::string& path, std::string& name) {
    constexpr int tries = 10; // each lost to a process that clears rests at this very moment
    for (int count = 0; count < tries; ++count) {
        name = parentOf(path) + "/" + temporaryPrefix(path) + std::string(chance);
        Descriptor file(mkostemp(name.data(), O_CLOEXEC)); // 0600
        struct stat status {};
        if (!file || ((flock(file.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) &&
                      fstat(file.get(), &status) == 0 && status.st_nlink > 0))
            return file;
    }
    errno = EAGAIN;
    return Descriptor();
}

/// 0 or an error's number.
int writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? errno : EIO;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

WriteOutcome outcomeOf(int error) {
    return error ? WriteOutcome(failureOf(error)) : WriteOutcome();
}

} // namespace

PosixFileSystem::PosixFileSystem()
    : dataHome_(baseFolder("XDG_DATA_HOME", ".local/share")),
      configHome_(baseFolder("XDG_CONFIG_HOME", ".config")) {}

FileSystem::Contents PosixFileSystem::read(const std::string& path, std::size_t limit) const {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        return {{}, missing ? ReadFailure::missing : ReadFailure::unreadable};
    }
    // Looked at before and after opening: opening a device can do something, and O_NONBLOCK keeps a
    // pipe that takes the file's place in between from blocking.
    if (!S_ISREG(status.st_mode))
        return {{}, ReadFailure::unreadable};
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return {{}, ReadFailure::unreadable};
    if (static_cast<std::uint64_t>(status.st_size) > limit)
        return {{}, ReadFailure::tooLarge};

    std::string bytes;
    char buffer[1 << 16];
    for (;;) {
        const auto count = ::read(file.get(), buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {{}, ReadFailure::unreadable};
        if (count == 0)
            return {std::move(bytes), {}};
        bytes.append(buffer, static_cast<std::size_t>(count));
        if (bytes.size() > limit)
            return {{}, ReadFailure::tooLarge};
    }
}

std::vector<std::string> PosixFileSystem::names(const std::string& folder) const {
    std::vector<std::string> found;
    std::error_code failure;
    using Entries = std::filesystem::directory_iterator;
    for (Entries entry(folder, failure); !failure && entry != Entries(); entry.increment(failure))
        found.push_back(entry->path().filename().string());
    std::ranges::sort(found);
    return found;
}

WriteOutcome PosixFileSystem::write(const std::string& path, std::string_view bytes) {
    const auto target = linkTarget(path);
    const auto folder = parentOf(target);
    int error = replacementError(target);
    if (!error && !makePrivateFolder(folder))
        error = errno;
    if (error)
        return failureOf(error);
    std::string temporary;
    const auto file = makeTemporary(target, temporary);
    if (!file)
        return failureOf(errno);
    error = writeAll(file.get(), bytes);
    if (!error && (fsync(file.get()) != 0 || rename(temporary.c_str(), target.c_str()) != 0))
        error = errno;
    if (error) {
        unlink(temporary.c_str());
        return failureOf(error);
    }
    return outcomeOf(syncFolder(folder));
}

WriteOutcome PosixFileSystem::move(const std::string& from, const std::string& to) {
    if (rename(from.c_str(), to.c_str()) != 0)
        return failureOf(errno);
    const int error = syncFolder(parentOf(to));
    return outcomeOf(error || parentOf(from) == parentOf(to) ? error : syncFolder(parentOf(from)));
}

WriteOutcome PosixFileSystem::remove(const std::string& path) {
    return unlink(path.c_str()) == 0 || errno == ENOENT ? WriteOutcome() : failureOf(errno);
}

void PosixFileSystem::clearRests(const std::string& path) {
    const auto target = linkTarget(path);
    const auto prefix = temporaryPrefix(target);
    const auto folder = parentOf(target);
    for (const auto& name : names(folder)) {
        if (!name.starts_with(prefix) || name.size() != prefix.size() + chance.size())
            continue;
        const auto rest = folder + "/" + name;
        const Descriptor file(open(rest.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat status {};
        if (file && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) &&
            flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            unlink(rest.c_str());
    }
}

Subscription PosixFileSystem::lock(const std::string& folder, Seconds patience) {
    using Clock = std::chrono::steady_clock;
    constexpr auto pause = std::chrono::milliseconds(2);
    // Nobody is told of a lock that is free again: who comes back at once would always be the
    // first.
    constexpr auto turnOfOthers = 5 * pause;
    if (!makePrivateFolder(folder))
        return {};
    if (patience > 0)
        std::this_thread::sleep_until(released_->load() + turnOfOthers);
    auto handle =
        std::make_shared<Descriptor>(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto deadline = Clock::now() + std::chrono::duration<double>(patience);
    while (flock(handle->get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || Clock::now() >= deadline)
            return {};
        std::this_thread::sleep_for(pause);
    }
    return Subscription([handle, released = released_] {
        flock(handle->get(), LOCK_UN);
        released->store(Clock::now());
    });
}

} // namespace orvelle
