#include "Platform/Linux/XdgLoginItem.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace orvelle {

namespace {

// The quoting of the Exec key: the argument in double quotes, with a backslash before what these
// do not protect; then each backslash once more, as in every value, and a percent sign doubled.
std::string execArgument(const std::string& path) {
    std::string quoted = "\"";
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$')
            quoted += "\\\\";
        else if (c == '\\')
            quoted += "\\\\\\";
        else if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace

XdgLoginItem::XdgLoginItem(FileSystem& fileSystem, LogSink& log, std::string executable)
    : fileSystem_(fileSystem), log_(log, "LoginItem"), executable_(std::move(executable)) {
    const auto own = fileSystem.configurationDirectory(); // ends in the program's own folder
    path_ = own.substr(0, own.rfind('/')) + "/autostart/orvelle.desktop";
}

bool XdgLoginItem::enroll() {
    fileSystem_.clearRests(path_);
    const auto written =
        fileSystem_.write(path_, "[Desktop Entry]\nType=Application\nName=Orvelle\nExec=" +
                                     execArgument(executable_) +
                                     "\nIcon=orvelle\nTerminal=false\nStartupNotify=false\n");
    if (!written)
        log_.error(path_ + " cannot be written: " + describe(*written.failure()) +
                   "; the program will not start at login");
    return static_cast<bool>(written);
}

bool XdgLoginItem::withdraw() {
    if (unlink(path_.c_str()) == 0 || errno == ENOENT)
        return true;
    log_.error(path_ + " cannot be removed: " + std::strerror(errno));
    return false;
}

} // namespace orvelle
