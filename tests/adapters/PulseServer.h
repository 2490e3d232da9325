#pragma once

#include "Support/TemporaryFolder.h"

#include <QProcess>
#include <QString>

namespace orvelle {

/// A sound server of the test's own with two outputs that play into the void, "speakers" and
/// "headphones", the first one being the default. It can be stopped and started again.
class PulseServer {
public:
    PulseServer();
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    std::string address() const;
    void start();
    void stop();
    /// Stops the process in its tracks, so that it answers nothing.
    void hang();
    void wakeUp();
    /// What "pactl" says; the test fails when it fails.
    QString control(const QStringList& arguments) const;

private:
    QProcessEnvironment environment() const;

    TemporaryFolder folder_;
    QProcess daemon_;
};

} // namespace orvelle
