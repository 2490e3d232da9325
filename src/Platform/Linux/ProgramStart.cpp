#include "Platform/Linux/ProgramStart.h"

#include <QProcess>

namespace orvelle {

namespace {

QStringList managersArguments() {
    // What the program starts in turn belongs to it, and goes on when it ends.
    QStringList arguments{QStringLiteral("--user"), QStringLiteral("--quiet"),
                          QStringLiteral("--collect"),
                          QStringLiteral("--property=ExitType=cgroup")};
    for (const auto* variable : {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "XDG_CURRENT_DESKTOP"})
        if (qEnvironmentVariableIsSet(variable))
            arguments += QStringLiteral("--setenv=") + QLatin1String(variable);
    return arguments + QStringList{QStringLiteral("--")};
}

} // namespace

bool startProgram(const QString& path, const QStringList& arguments) {
    if (!qEnvironmentVariableIsSet("ORVELLE_START_OUTSIDE"))
        return QProcess::startDetached(path, arguments);
    return QProcess::startDetached(QStringLiteral("systemd-run"),
                                   managersArguments() + QStringList{path} + arguments);
}

} // namespace orvelle
