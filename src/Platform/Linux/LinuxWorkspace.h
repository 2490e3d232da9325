#pragma once

#include "Foundation/Subscription.h"
#include "Foundation/Tasks.h"
#include "Platform/Linux/RunningPrograms.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/Workspace.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace orvelle {

/// Opens addresses and documents with the desktop's opener, starts applications by their desktop
/// entries, and serves the addresses of another platform's programs and settings pages with this
/// desktop's own ones: of the programs that serve an address the first one that belongs to the
/// running desktop and is installed, else the first one that is installed. A program that runs
/// already is brought to the front and never started a second time. Main thread; what is started
/// is left to itself.
class LinuxWorkspace : public Workspace {
public:
    struct Environment {
        QString currentDesktop; ///< names with colons between, the most special first
        QString path;           ///< folders of programs, with colons between

        static Environment ofProcess();
    };

    using ShowInFolder = std::function<void(const std::string& fileUrl)>;

    /// Programs are started anew where nobody knows which ones run.
    LinuxWorkspace(RunLoop& runLoop, LogSink& log, Environment environment, ShowInFolder show,
                   RunningPrograms* running = nullptr);

    void open(const std::string& url) override;
    void openCalendar(Date day) override;
    void openFromNetwork(const std::string& url) override;
    void openDocument(const std::string& fileUrl) override;
    /// An application's bundle identifier is its desktop entry's name, or the one that another
    /// platform knows it by.
    void launch(const std::string& bundleIdentifier) override;

private:
    /// One that is installed, or runs, or both.
    struct Program {
        std::vector<std::string> identifiers;
        QString entry; ///< the file; empty when it is not installed
    };

    static Program programOf(const std::string& bundleIdentifier);
    void launchUnlessRunning(const Program& program);
    /// Once a subject.
    void report(const std::string& subject, const std::string& what);
    void openWith(const std::string& url, std::optional<Date> day);
    bool openForeign(const std::string& url, std::optional<Date> day) const;
    bool openAddress(const std::string& url, const std::set<QString>& schemes) const;
    /// Starts an installed program; false when it is not installed.
    bool start(const QString& program, const QStringList& arguments) const;

    RunLoop& runLoop_;
    Logger log_;
    QStringList desktops_;
    QStringList folders_;
    ShowInFolder show_;
    std::set<std::string> reported_;
    Tasks openings_;
    RunningPrograms* running_;
    std::map<QString, QElapsedTimer> started_; ///< entries, which may take a while to show
    Lifetime lifetime_;
};

} // namespace orvelle
