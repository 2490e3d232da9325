#include "adapters/ScriptedServer.h"

#include <QFile>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvelle {

Identity Identity::forHost(const QString& subjectAlternativeName) {
    const QTemporaryDir folder;
    const auto keyFile = folder.filePath(QStringLiteral("key.pem"));
    const auto certificateFile = folder.filePath(QStringLiteral("certificate.pem"));
    QProcess openssl;
    openssl.setProcessChannelMode(QProcess::MergedChannels);
    openssl.start(QStringLiteral("openssl"),
                  {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                   QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                   QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                   QStringLiteral("-subj"), QStringLiteral("/CN=test"), QStringLiteral("-addext"),
                   QStringLiteral("subjectAltName=") + subjectAlternativeName,
                   QStringLiteral("-keyout"), keyFile, QStringLiteral("-out"), certificateFile});
    EXPECT_TRUE(openssl.waitForFinished());
    EXPECT_EQ(openssl.exitCode(), 0) << openssl.readAll().toStdString();
    QFile key(keyFile);
    QFile certificate(certificateFile);
    EXPECT_TRUE(key.open(QFile::ReadOnly) && certificate.open(QFile::ReadOnly));
    return {QSslKey(&key, QSsl::Ec), QSslCertificate(&certificate)};
}

ScriptedServer::ScriptedServer(std::optional<Identity> identity) : identity_(std::move(identity)) {
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
}

std::string ScriptedServer::url(const char* path) const {
    return (identity_ ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(serverPort()) +
           path;
}

ScriptedServer::Answer ScriptedServer::writing(QByteArray bytes) {
    return [bytes = std::move(bytes)](QTcpSocket& socket) {
        socket.write(bytes);
        socket.disconnectFromHost();
    };
}

ScriptedServer::Answer ScriptedServer::replying(int status, QByteArray body, QByteArray headers) {
    return writing("HTTP/1.1 " + QByteArray::number(status) + " Word\r\n" + headers +
                   "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

void ScriptedServer::incomingConnection(qintptr descriptor) {
    auto* socket = identity_ ? new QSslSocket(this) : new QTcpSocket(this);
    socket->setSocketDescriptor(descriptor);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
    if (!identity_)
        return;
    auto* secure = static_cast<QSslSocket*>(socket);
    secure->setPrivateKey(identity_->key);
    secure->setLocalCertificate(identity_->certificate);
    secure->startServerEncryption();
}

void ScriptedServer::read(QTcpSocket& socket) {
    const auto head = socket.property("head").toByteArray() + socket.readAll();
    if (!head.contains("\r\n\r\n")) {
        socket.setProperty("head", head);
        return;
    }
    socket.setProperty("head", QByteArray());
    requests.append(head);
    if (answer)
        answer(socket);
}

} // namespace orvelle
