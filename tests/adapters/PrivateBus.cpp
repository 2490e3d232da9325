#include "adapters/PrivateBus.h"

#include "adapters/EventLoopWait.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <csignal>

namespace orvelle {

namespace {
constexpr int startBound = 10000; // milliseconds

QStringList mock(const QStringList& arguments) {
    return QStringList{QStringLiteral("-m"), QStringLiteral("dbusmock"),
                       QStringLiteral("--session")} +
           arguments;
}

} // namespace

PrivateBus::PrivateBus() {
    static int number = 0;
    controlName_ = QStringLiteral("control-%1").arg(++number);
    adapterName_ = QStringLiteral("adapter-%1").arg(number);
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"),
                   QStringLiteral("--nosyslog"), QStringLiteral("--print-address=1")});
    while (!daemon_.canReadLine() && daemon_.waitForReadyRead(startBound)) {
    }
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    EXPECT_TRUE(QDBusConnection::connectToBus(address_, controlName_).isConnected());
}

PrivateBus::~PrivateBus() {
    QDBusConnection::disconnectFromBus(controlName_);
    QDBusConnection::disconnectFromBus(adapterName_);
    daemon_.kill();
    daemon_.waitForFinished();
}

BusProvider PrivateBus::provider() {
    return [this] {
        ++connectionCount_;
        return QDBusConnection::connectToBus(address_, adapterName_);
    };
}

bool PrivateBus::hasService(const QString& name) const {
    return QDBusConnection(controlName_).interface()->isServiceRegistered(name);
}

QVariantList PrivateBus::call(const QString& service, const QString& path, const QString& interface,
                              const QString& method, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const auto reply = QDBusConnection(controlName_).call(message);
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    return reply.arguments();
}

QStringList MockService::fromTemplate(const QString& name) {
    return mock({QStringLiteral("-t"), name});
}

QStringList MockService::empty(const QString& name, const QString& path, const QString& interface) {
    return mock({name, path, interface});
}

QStringList MockService::fromScript(const QString& path) {
    return {path};
}

MockService::MockService(PrivateBus& bus, QString name, QString path, const QStringList& arguments)
    : bus_(bus), name_(std::move(name)), path_(std::move(path)) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    process_.setProcessEnvironment(environment);
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.start(QStringLiteral("/usr/bin/python3"), arguments);
    EXPECT_TRUE(waitUntil([&] { return bus_.hasService(name_); }));
}

MockService::~MockService() {
    process_.kill();
    process_.waitForFinished();
    waitUntil([&] { return !bus_.hasService(name_); });
}

void MockService::addMethod(const QString& interface, const QString& method, const QString& input,
                            const QString& output, const QString& code) {
    call(mockInterface, QStringLiteral("AddMethod"), {interface, method, input, output, code});
}

qsizetype MockService::callCount(const QString& method) const {
    const auto answer = call(mockInterface, QStringLiteral("GetMethodCalls"), {method});
    const auto calls = answer.value(0).value<QDBusArgument>();
    qsizetype count = 0;
    calls.beginArray();
    for (; !calls.atEnd(); ++count)
        calls.asVariant();
    calls.endArray();
    return count;
}

QVariantList MockService::call(const QString& interface, const QString& method,
                               const QVariantList& arguments) const {
    return bus_.call(name_, path_, interface, method, arguments);
}

void MockService::hang() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void MockService::wakeUp() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

} // namespace orvelle
