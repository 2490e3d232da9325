#pragma once

#include "Platform/Log.h"
#include "Platform/Workspace.h"

#include <QString>
#include <QStringList>

#include <set>

namespace orvelle {

/// Opens addresses with the desktop's opener, applications by their desktop entries, and those of
/// another platform's programs and settings pages with this desktop's own ones: of the programs
/// that serve an address the first one that belongs to the running desktop and is installed, else
/// the first one that is installed. Main thread; what is started is left to itself.
class LinuxWorkspace : public Workspace {
public:
    struct Environment {
        QString currentDesktop; ///< names with colons between, the most special first
        QString path;           ///< folders of programs, with colons between

        static Environment ofProcess();
    };

    LinuxWorkspace(LogSink& log, Environment environment);

    void open(const std::string& url) override;
    /// The file of the desktop entry; an application's bundle identifier is the entry's name, or
    /// the one that another platform knows it by.
    std::optional<std::string> applicationUrl(const std::string& bundleIdentifier) override;

private:
    bool openForeign(const std::string& url) const;
    bool openWithDesktop(const std::string& url) const;
    /// Starts an installed program; false when it is not installed.
    bool start(const QString& program, const QStringList& arguments) const;

    Logger log_;
    QStringList desktops_;
    QStringList folders_;
    std::set<std::string> reported_;
};

} // namespace orvelle
