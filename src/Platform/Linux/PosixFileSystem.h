#pragma once

#include "Platform/FileSystem.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

namespace orvelle {

/// Files by POSIX calls, folders by the XDG base directories: a variable that is unset, empty or
/// not absolute counts as unset, and without a HOME the user's entry in the password file serves.
///
/// A symbolic link stays, and its target is replaced. What is no regular file is neither read nor
/// replaced, nor is a file that its owner has made read-only.
class PosixFileSystem : public FileSystem {
public:
    PosixFileSystem();

    std::string applicationSupportDirectory() const override { return dataHome_; }
    std::string configurationDirectory() const override { return configHome_ + "/orvelle"; }
    Contents read(const std::string& path, std::size_t limit) const override;
    std::vector<std::string> names(const std::string& folder) const override;
    WriteOutcome write(const std::string& path, std::string_view bytes) override;
    WriteOutcome move(const std::string& from, const std::string& to) override;
    WriteOutcome remove(const std::string& path) override;
    void clearRests(const std::string& path) override;
    Subscription lock(const std::string& folder, Seconds patience) override;

private:
    std::string dataHome_;
    std::string configHome_;
    /// When a lock was given back last.
    std::shared_ptr<std::atomic<std::chrono::steady_clock::time_point>> released_ =
        std::make_shared<std::atomic<std::chrono::steady_clock::time_point>>();
};

} // namespace orvelle
