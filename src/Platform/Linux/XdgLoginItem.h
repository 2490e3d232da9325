#pragma once

#include "Platform/FileSystem.h"
#include "Platform/Log.h"
#include "Platform/LoginItem.h"

#include <string>

namespace orvelle {

/// The entry "orvelle.desktop" in the user's autostart folder.
class XdgLoginItem : public LoginItem {
public:
    /// `executable` is the path that the entry starts.
    XdgLoginItem(FileSystem& fileSystem, LogSink& log, std::string executable);

    bool enroll() override;
    bool withdraw() override;

    const std::string& path() const { return path_; }

private:
    FileSystem& fileSystem_;
    Logger log_;
    std::string executable_;
    std::string path_;
};

} // namespace orvelle
