#pragma once

#include "Platform/HttpClient.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orvelle {

/// One request under way, in the network's thread: gathers the body up to its limit, decides over
/// redirects and watches the time. Reports once, then nothing more.
class HttpTransfer : public QObject {
public:
    static QNetworkRequest networkRequest(const HttpRequest& request);

    HttpTransfer(QNetworkReply* reply, std::chrono::milliseconds idleLimit,
                 std::chrono::milliseconds wholeLimit,
                 std::function<void(const HttpReply&)> report);
    ~HttpTransfer() override;

private:
    void follow(const QUrl& target);
    void gather();
    void finish();
    /// The toolkit may miss that a server hung up before its answer, or before a plain body was as
    /// long as was announced.
    bool isCut(int status) const;
    void fail(const QString& description);
    void end(const HttpReply& result);

    QNetworkReply* const reply_; ///< a child
    const std::chrono::milliseconds idleLimit_;
    std::function<void(const HttpReply&)> report_; ///< empty once it was called
    std::string body_;
    int redirects_ = 0;
    QTimer idle_;
    QTimer whole_;
};

} // namespace orvelle
