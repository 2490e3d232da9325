#include "Platform/Qt/QtUrlData.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>

#include <utility>

namespace orvelle {

namespace {

constexpr int mostRedirections = 5;

std::optional<SharedBytes> readFile(const QString& path, std::size_t limit) {
    // Opening anything else, such as a pipe, could wait for ever.
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const auto bytes = file.read(static_cast<qint64>(limit) + 1);
    if (static_cast<std::size_t>(bytes.size()) > limit)
        return std::nullopt;
    return SharedBytes(bytes.toStdString());
}

/// What stands in the address itself: "data:[type][;base64],bytes".
std::optional<SharedBytes> readInline(const std::string& url, std::size_t limit) {
    const auto comma = url.find(',');
    if (comma == std::string::npos)
        return std::nullopt;
    const auto head = std::string_view(url).substr(0, comma);
    auto bytes = QByteArray::fromPercentEncoding(QByteArray::fromRawData(
        url.data() + comma + 1, static_cast<qsizetype>(url.size() - comma - 1)));
    if (head.ends_with(";base64")) {
        auto decoded =
            QByteArray::fromBase64Encoding(bytes, QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            return std::nullopt;
        bytes = std::move(*decoded);
    }
    if (static_cast<std::size_t>(bytes.size()) > limit)
        return std::nullopt;
    return SharedBytes(bytes.toStdString());
}

} // namespace

std::optional<SharedBytes> QtUrlData::read(const std::string& url, std::size_t limit,
                                           std::stop_token stop) {
    if (stop.stop_requested())
        return std::nullopt;
    if (url.starts_with("data:"))
        return readInline(url, limit);
    if (url.starts_with("http:") || url.starts_with("https:"))
        return download(url, limit, std::move(stop));
    const QUrl address(QString::fromStdString(url));
    return address.isLocalFile() ? readFile(address.toLocalFile(), limit) : std::nullopt;
}

std::optional<SharedBytes> QtUrlData::download(const std::string& url, std::size_t limit,
                                               std::stop_token stop) {
    QNetworkRequest request(QUrl(QString::fromStdString(url)));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirections);
    // Unpacking is the other side's way to make much of little.
    request.setRawHeader("Accept-Encoding", "identity");
    QNetworkAccessManager manager;
    QEventLoop loop;
    const std::unique_ptr<QNetworkReply> reply(manager.get(request));
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    const auto most = static_cast<qint64>(limit);
    QObject::connect(reply.get(), &QNetworkReply::downloadProgress, &loop,
                     [&](qint64 received, qint64 total) {
                         if (received > most || total > most)
                             reply->abort();
                     });
    const std::stop_callback stopping(std::move(stop), [&loop] {
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    waits_.wait(loop, bound);
    if (!reply->isFinished() || reply->error() != QNetworkReply::NoError ||
        reply->bytesAvailable() > most)
        return std::nullopt;
    return SharedBytes(reply->readAll().toStdString());
}

} // namespace orvelle
