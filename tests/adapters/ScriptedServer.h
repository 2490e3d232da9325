#pragma once

#include <QByteArray>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <optional>

namespace orvelle {

/// A key and the certificate that it signed itself, made for a host.
struct Identity {
    QSslKey key;
    QSslCertificate certificate;

    static Identity forHost(const QString& subjectAlternativeName);
};

/// A web server on the loopback that answers as the test says, however badly.
class ScriptedServer : public QTcpServer {
public:
    using Answer = std::function<void(QTcpSocket& socket)>;

    /// Speaks TLS with an identity, and plainly without.
    explicit ScriptedServer(std::optional<Identity> identity = {});

    /// Called at the end of each request's head.
    Answer answer;
    QList<QByteArray> requests;

    std::string url(const char* path = "/") const;

    /// Writes the bytes and closes.
    static Answer writing(QByteArray bytes);
    /// Writes a whole reply with this body.
    static Answer replying(int status, QByteArray body = {}, QByteArray headers = {});

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void read(QTcpSocket& socket);

    std::optional<Identity> identity_;
};

} // namespace orvelle
