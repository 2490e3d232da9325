#include "Platform/Linux/PosixFileSystem.h"

#include "Platform/Linux/BaseFolders.h"
#include "Platform/Linux/Descriptor.h"
#include "Platform/Linux/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

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

bool isReplaceable(const std::string& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0)
        return errno == ENOENT;
    constexpr mode_t writable = S_IWUSR | S_IWGRP | S_IWOTH; // access() lets root write all
    return S_ISREG(status.st_mode) && (status.st_mode & writable) != 0 &&
           access(path.c_str(), W_OK) == 0;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Makes a rename durable. Some file systems cannot; the rename has happened all the same.
void syncFolder(const std::string& folder) {
    const Descriptor handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle)
        fsync(handle.get());
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

bool PosixFileSystem::write(const std::string& path, std::string_view bytes) {
    const auto target = linkTarget(path);
    const auto folder = parentOf(target);
    if (!isReplaceable(target) || !makePrivateFolder(folder))
        return false;
    auto temporary = folder + "/." + std::filesystem::path(target).filename().string() + ".XXXXXX";
    const Descriptor file(mkostemp(temporary.data(), O_CLOEXEC)); // 0600
    if (!file)
        return false;
    if (!writeAll(file.get(), bytes) || fsync(file.get()) != 0 ||
        rename(temporary.c_str(), target.c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    syncFolder(folder);
    return true;
}

bool PosixFileSystem::move(const std::string& from, const std::string& to) {
    if (rename(from.c_str(), to.c_str()) != 0)
        return false;
    syncFolder(parentOf(to));
    if (parentOf(from) != parentOf(to))
        syncFolder(parentOf(from));
    return true;
}

Subscription PosixFileSystem::lock(const std::string& folder, Seconds patience) {
    using Clock = std::chrono::steady_clock;
    constexpr auto pause = std::chrono::milliseconds(5);
    if (!makePrivateFolder(folder))
        return {};
    auto handle =
        std::make_shared<Descriptor>(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto deadline = Clock::now() + std::chrono::duration<double>(patience);
    while (flock(handle->get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || Clock::now() >= deadline)
            return {};
        std::this_thread::sleep_for(pause);
    }
    return Subscription([handle] { flock(handle->get(), LOCK_UN); });
}

} // namespace orvelle
