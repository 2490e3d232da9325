#pragma once

#include "Platform/Linux/BusService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QString>

namespace orvelle {

/// A bus of the test's own, with a daemon of its own: never the machine's.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return address_; }
    /// For the adapter under test; counts the connections that it asks for.
    BusProvider provider();
    int connectionCount() const { return connectionCount_; }
    bool hasService(const QString& name) const;
    /// Calls a mock and waits; the test fails when that fails.
    QVariantList call(const QString& service, const QString& path, const QString& interface,
                      const QString& method, const QVariantList& arguments) const;

private:
    QProcess daemon_;
    QString address_;
    QString controlName_;
    QString adapterName_;
    int connectionCount_ = 0;
};

inline const QString mockInterface = QStringLiteral("org.freedesktop.DBus.Mock");

/// A service of python3-dbusmock, or of a script of our own, on a private bus; leaves the bus when
/// destroyed.
class MockService {
public:
    /// Plays one of the ready templates.
    static QStringList fromTemplate(const QString& name);
    /// An object without methods.
    static QStringList empty(const QString& name, const QString& path, const QString& interface);
    /// A program in Python that is the service itself.
    static QStringList fromScript(const QString& path);

    MockService(PrivateBus& bus, QString name, QString path, const QStringList& arguments);
    ~MockService();
    MockService(const MockService&) = delete;
    MockService& operator=(const MockService&) = delete;

    /// `code` is Python, with `args` and `ret`.
    void addMethod(const QString& interface, const QString& method, const QString& input,
                   const QString& output, const QString& code);
    qsizetype callCount(const QString& method) const;
    QVariantList call(const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) const;
    std::uint32_t processId() const { return static_cast<std::uint32_t>(process_.processId()); }
    /// Stops the process in its tracks, so that it stays on the bus and answers nothing.
    void hang();
    void wakeUp();

private:
    PrivateBus& bus_;
    QString name_;
    QString path_;
    QProcess process_;
};

} // namespace orvelle
