#pragma once

#include "Foundation/Tasks.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/Workspace.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <set>

namespace orvelle {

/// Opens addresses and documents with the desktop's opener, starts applications by their desktop
/// entries, and serves the addresses of another platform's programs and settings pages with this
/// desktop's own ones: of the programs that serve an address the first one that belongs to the
/// running desktop and is installed, else the first one that is installed. Main thread; what is
/// started is left to itself.
class LinuxWorkspace : public Workspace {
public:
    struct Environment {
        QString currentDesktop; ///< names with colons between, the most special first
        QString path;           ///< folders of programs, with colons between

        static Environment ofProcess();
    };

    using ShowInFolder = std::function<void(const std::string& fileUrl)>;

    LinuxWorkspace(RunLoop& runLoop, LogSink& log, Environment environment, ShowInFolder show);

    void open(const std::string& url) override;
    void openFromNetwork(const std::string& url) override;
    void openDocument(const std::string& fileUrl) override;
    /// An application's bundle identifier is its desktop entry's name, or the one that another
    /// platform knows it by.
    void launch(const std::string& bundleIdentifier) override;

private:
    bool openForeign(const std::string& url) const;
    bool openAddress(const std::string& url, const std::set<QString>& schemes) const;
    void refuse(const std::string& deed, const std::string& what);
    /// Starts an installed program; false when it is not installed.
    bool start(const QString& program, const QStringList& arguments) const;

    RunLoop& runLoop_;
    Logger log_;
    QStringList desktops_;
    QStringList folders_;
    ShowInFolder show_;
    std::set<std::string> reported_;
    Tasks openings_;
};

} // namespace orvelle
