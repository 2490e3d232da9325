#include "adapters/PulseServer.h"

#include "adapters/EventLoopWait.h"

#include <csignal>

namespace orvelle {

namespace {

QString sink(const char* name, const char* description) {
    return QStringLiteral("module-null-sink sink_name=%1 sink_properties=device.description=%2")
        .arg(QLatin1String(name), QLatin1String(description));
}

} // namespace

PulseServer::PulseServer() {
    start();
}

PulseServer::~PulseServer() {
    stop();
}

std::string PulseServer::address() const {
    return "unix:" + folder_.path("native");
}

QProcessEnvironment PulseServer::environment() const {
    auto variables = QProcessEnvironment::systemEnvironment();
    const auto folder = QString::fromStdString(folder_.path());
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"})
        variables.insert(QLatin1String(name), folder);
    variables.insert(QStringLiteral("PULSE_SERVER"), QString::fromStdString(address()));
    for (const char* name : {"DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        variables.remove(QLatin1String(name));
    return variables;
}

void PulseServer::start() {
    daemon_.setProcessEnvironment(environment());
    daemon_.setStandardErrorFile(QProcess::nullDevice());
    const auto socket = QString::fromStdString(folder_.path("native"));
    daemon_.start(QStringLiteral("pulseaudio"),
                  {QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
                   QStringLiteral("-n"), QStringLiteral("-L"), sink("speakers", "Speakers"),
                   QStringLiteral("-L"), sink("headphones", "Headphones"), QStringLiteral("-L"),
                   QStringLiteral("module-native-protocol-unix socket=%1").arg(socket)});
    const auto answers = [this] {
        QProcess question;
        question.setProcessEnvironment(environment());
        question.start(QStringLiteral("pactl"), {QStringLiteral("info")});
        question.waitForFinished();
        return question.exitCode() == 0;
    };
    EXPECT_TRUE(waitUntil(answers));
    control({QStringLiteral("set-default-sink"), QStringLiteral("speakers")});
}

void PulseServer::stop() {
    daemon_.kill();
    daemon_.waitForFinished();
    folder_.remove("native"); // a killed server leaves its socket
}

void PulseServer::hang() {
    ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP);
}

void PulseServer::wakeUp() {
    ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT);
}

QString PulseServer::control(const QStringList& arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(QStringLiteral("pactl"), arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace orvelle
