#include "Platform/Qt/HttpTransfer.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

constexpr int mostRedirects = 10;
constexpr qint64 portion = 1 << 16;        // bytes read at a time
constexpr qint64 waitingPortion = 1 << 18; // bytes that may wait to be read
constexpr auto longestTimeout = std::chrono::hours(24);

const QString secureScheme = QStringLiteral("https");

/// Any status is an answer; the toolkit counts those from 400 on among its errors.
bool isErrorOfTheStatus(QNetworkReply::NetworkError error, int status) {
    if (status < 400)
        return false;
    return (error > QNetworkReply::UnknownProxyError &&
            error <= QNetworkReply::UnknownContentError) ||
           error == QNetworkReply::ProtocolInvalidOperationError ||
           (error >= QNetworkReply::InternalServerError &&
            error <= QNetworkReply::UnknownServerError);
}

} // namespace

QNetworkRequest HttpTransfer::networkRequest(const HttpRequest& request) {
    QNetworkRequest made(QUrl(QString::fromStdString(request.url), QUrl::StrictMode));
    made.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Orvelle"));
    for (const auto& [name, value] : request.headers)
        made.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
    made.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                      request.cachePolicy == HttpCachePolicy::reloadIgnoringLocalCache
                          ? QNetworkRequest::AlwaysNetwork
                          : QNetworkRequest::PreferNetwork);
    made.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::UserVerifiedRedirectPolicy);
    return made;
}

HttpTransfer::HttpTransfer(QNetworkReply* reply, std::chrono::milliseconds idleLimit,
                           std::chrono::milliseconds wholeLimit,
                           std::function<void(const HttpReply&)> report)
    : reply_(reply), idleLimit_(std::clamp<std::chrono::milliseconds>(
                         idleLimit, std::chrono::milliseconds(1), longestTimeout)),
      report_(std::move(report)) {
    reply_->setParent(this);
    reply_->setReadBufferSize(waitingPortion);
    connect(reply_, &QNetworkReply::redirected, this, &HttpTransfer::follow);
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { idle_.start(idleLimit_); });
    connect(reply_, &QNetworkReply::readyRead, this, &HttpTransfer::gather);
    connect(reply_, &QNetworkReply::finished, this, &HttpTransfer::finish);
    const auto timeOut = [this] { fail(QStringLiteral("The request timed out.")); };
    for (auto* timer : {&idle_, &whole_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, timeOut);
    }
    idle_.start(idleLimit_);
    whole_.start(wholeLimit);
}

HttpTransfer::~HttpTransfer() {
    reply_->disconnect(this);
    reply_->abort();
}

void HttpTransfer::follow(const QUrl& target) {
    idle_.start(idleLimit_);
    // The reply's own address is the target's already.
    const bool isSecure = reply_->request().url().scheme() == secureScheme;
    if (++redirects_ > mostRedirects)
        fail(QStringLiteral("There are too many redirects."));
    else if (isSecure && target.scheme() == secureScheme)
        Q_EMIT reply_->redirectAllowed();
    else
        fail(QStringLiteral("The redirect to %1 is not secure.")
                 .arg(target.toDisplayString(QUrl::RemovePath | QUrl::RemoveQuery)));
}

void HttpTransfer::gather() {
    idle_.start(idleLimit_);
    while (report_) {
        const auto bytes = reply_->read(portion);
        if (bytes.isEmpty())
            return;
        if (body_.size() + static_cast<std::size_t>(bytes.size()) > HttpClient::bodyLimit)
            fail(QStringLiteral("The answer is too long."));
        else
            body_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
}

void HttpTransfer::finish() {
    gather();
    if (!report_)
        return;
    const auto status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const auto error = reply_->error();
    if (error == QNetworkReply::NoError && isCut(status))
        fail(QStringLiteral("The answer is cut."));
    else if (error == QNetworkReply::NoError || isErrorOfTheStatus(error, status))
        end({{}, status, std::move(body_)});
    else
        fail(reply_->errorString());
}

bool HttpTransfer::isCut(int status) const {
    constexpr int firstFinalStatus = 200;
    if (status < firstFinalStatus)
        return true;
    const auto length = reply_->header(QNetworkRequest::ContentLengthHeader);
    const bool isWritten = !body_.empty() && !reply_->hasRawHeader("Content-Encoding");
    return isWritten && length.isValid() && length.toLongLong() > static_cast<qint64>(body_.size());
}

void HttpTransfer::fail(const QString& description) {
    end({description.toStdString(), 0, {}});
}

void HttpTransfer::end(const HttpReply& result) {
    idle_.stop();
    whole_.stop();
    if (const auto report = std::exchange(report_, nullptr))
        report(result);
}

} // namespace orvelle
