#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace orvelle {

/// A folder of files that stands for one of the kernel's; gone with the test.
class TemporaryFolder {
public:
    std::string path(std::string_view name = "") const {
        return folder_.path().toStdString() + "/" + std::string(name);
    }
    /// Writes in place, so that an open file sees the new content; makes missing folders.
    void write(std::string_view name, std::string_view text) const {
        const std::filesystem::path file = path(name);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::trunc) << text;
    }
    void remove(std::string_view name) const { std::filesystem::remove_all(path(name)); }
    /// A program that writes its name and arguments to the file "started".
    void writeProgram(const std::string& name) const {
        write(name, "#!/bin/sh\necho \"" + name + " $*\" > '" + path("started.part") + "'\nmv '" +
                        path("started.part") + "' '" + path("started") + "'\n");
        std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    }

private:
    QTemporaryDir folder_;
};

} // namespace orvelle
