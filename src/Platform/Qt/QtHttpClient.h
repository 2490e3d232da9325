#pragma once

#include "Platform/HttpClient.h"

#include <QObject>
#include <QSslCertificate>
#include <QThread>

#include <chrono>
#include <cstdint>

namespace orvelle {

/// Qt's network in a thread of its own, so that neither a handshake nor a hostile body holds up the
/// main thread. The thread begins with the first request. Needs the main thread's event loop.
///
/// Proxies are the system's, except on the way to this machine itself.
class QtHttpClient : public HttpClient {
public:
    struct Options {
        /// Trusted besides the system's authorities.
        QList<QSslCertificate> authorities = {};
        /// A whole transfer never takes longer, however steadily it drips.
        std::chrono::milliseconds longestTransfer = std::chrono::minutes(2);
    };

    QtHttpClient() : QtHttpClient(Options()) {}
    explicit QtHttpClient(Options options);
    /// Ends every request without its completion.
    ~QtHttpClient() override;

    Subscription get(HttpRequest request, Completion done) override;

private:
    class Network;
    struct Waiting;

    Network& network();

    const Options options_;
    QObject mainThread_; ///< receives what the network's thread reports
    QThread thread_;
    Network* network_ = nullptr; ///< lives and dies in the thread; none before the first request
    std::uint64_t nextId_ = 0;
};

} // namespace orvelle
