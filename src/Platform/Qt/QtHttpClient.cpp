#include "Platform/Qt/QtHttpClient.h"

#include "Platform/Qt/HttpTransfer.h"

#include <QHostAddress>
#include <QMetaObject>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QSslConfiguration>

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace orvelle {

namespace {

class Proxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        const auto host = query.peerHostName();
        if (host == QLatin1String("localhost") || QHostAddress(host).isLoopback())
            return {QNetworkProxy::NoProxy};
        return systemProxyForQuery(query);
    }
};

/// The toolkit would read files as well.
bool isWebAddress(const QUrl& url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

std::chrono::milliseconds milliseconds(Seconds seconds) {
    constexpr Seconds longest = 1e6;
    return std::chrono::milliseconds(
        static_cast<std::int64_t>(std::ceil(std::fmin(seconds, longest) * 1000)));
}

} // namespace

/// The part of the client that lives in its thread.
class QtHttpClient::Network : public QObject {
public:
    explicit Network(const Options& options) : options_(options) {}

    void begin(std::uint64_t id, const HttpRequest& request,
               std::function<void(const HttpReply&)> report) {
        auto toSend = HttpTransfer::networkRequest(request);
        if (!isWebAddress(toSend.url())) {
            report({"The address is not supported.", 0, {}});
            return;
        }
        if (!options_.authorities.isEmpty()) {
            auto security = QSslConfiguration::defaultConfiguration();
            security.addCaCertificates(options_.authorities);
            toSend.setSslConfiguration(security);
        }
        auto finish = [this, id, report = std::move(report)](const HttpReply& reply) {
            report(reply);
            // Not at once: the transfer is still at work.
            QMetaObject::invokeMethod(
                this, [this, id] { end(id); }, Qt::QueuedConnection);
        };
        transfers_.emplace(
            id, std::make_unique<HttpTransfer>(manager().get(toSend), milliseconds(request.timeout),
                                               options_.longestTransfer, std::move(finish)));
    }
    void end(std::uint64_t id) { transfers_.erase(id); }

private:
    QNetworkAccessManager& manager() {
        if (!manager_) {
            manager_ = std::make_unique<QNetworkAccessManager>();
            manager_->setProxyFactory(new Proxies); // the manager owns it
        }
        return *manager_;
    }

    const Options& options_;
    std::unique_ptr<QNetworkAccessManager> manager_;
    std::map<std::uint64_t, std::unique_ptr<HttpTransfer>> transfers_; ///< die first
};

/// Who waits for a request. Main thread only.
struct QtHttpClient::Waiting {
    Completion done; ///< empty when nobody waits any more
};

QtHttpClient::QtHttpClient(Options options) : options_(std::move(options)) {
    thread_.setObjectName(QStringLiteral("network"));
}

QtHttpClient::~QtHttpClient() {
    thread_.quit();
    thread_.wait();
}

QtHttpClient::Network& QtHttpClient::network() {
    if (!network_) {
        network_ = new Network(options_);
        network_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, network_, &QObject::deleteLater);
        thread_.start();
    }
    return *network_;
}

Subscription QtHttpClient::get(HttpRequest request, Completion done) {
    const auto id = nextId_++;
    auto waiting = std::make_shared<Waiting>(Waiting{std::move(done)});
    auto deliver = [this, waiting](const HttpReply& reply) {
        QMetaObject::invokeMethod(
            &mainThread_,
            [waiting, reply] {
                if (const auto completion = std::exchange(waiting->done, nullptr))
                    completion(reply);
            },
            Qt::QueuedConnection);
    };
    auto* network = &this->network();
    QMetaObject::invokeMethod(
        network,
        [network, id, request = std::move(request), deliver = std::move(deliver)] {
            network->begin(id, request, deliver);
        },
        Qt::QueuedConnection);
    return Subscription([network, id, waiting] {
        waiting->done = nullptr;
        QMetaObject::invokeMethod(
            network, [network, id] { network->end(id); }, Qt::QueuedConnection);
    });
}

} // namespace orvelle
