#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace orvelle {

inline void writeFile(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::string fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// An empty folder that goes with its owner.
class TemporaryFolder {
public:
    TemporaryFolder() : path_(testing::TempDir() + "orvelle-XXXXXX") {
        if (!mkdtemp(path_.data()))
            std::abort();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& path() const { return path_; }
    std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }
    std::string operator/(std::string_view name) const { return path(name); }

    /// Writes in place, so that an open file sees the new content; makes missing folders.
    void write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path file = path(name);
        std::filesystem::create_directories(file.parent_path());
        writeFile(file, bytes);
    }
    void remove(std::string_view name) const { std::filesystem::remove_all(path(name)); }
    /// A program that writes its name and arguments to the file "started".
    void writeProgram(const std::string& name) const {
        write(name, "#!/bin/sh\necho \"" + name + " $*\" > '" + path("started.part") + "'\nmv '" +
                        path("started.part") + "' '" + path("started") + "'\n");
        std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    }

private:
    std::string path_;
};

} // namespace orvelle
