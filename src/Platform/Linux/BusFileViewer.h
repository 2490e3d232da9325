#pragma once

#include "Platform/FileViewer.h"
#include "Platform/Linux/BusService.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/Workspace.h"

namespace orvelle {

/// Asks the file manager that serves org.freedesktop.FileManager1 on the session's bus; where there
/// is none, the files' folder is opened instead.
class BusFileViewer : public FileViewer {
public:
    BusFileViewer(RunLoop& runLoop, LogSink& log, Workspace& workspace, BusProvider sessionBus);

    void select(const std::vector<std::string>& urls) override;

private:
    void ask(const QDBusConnection& connection, const std::vector<std::string>& urls);

    RunLoop& runLoop_;
    Logger log_;
    Workspace& workspace_;
    BusProvider bus_;
    QObject context_; ///< of the answers
    Subscription connecting_;
};

} // namespace orvelle
