#pragma once

#include "Platform/Linux/GeoClue.h"

namespace orvelle {

/// One client object of GeoClue, started as soon as it can be and deleted at the end. A service
/// that starts anew gets another one. Each wish for a place takes a client of its own: one that was
/// stopped and is started again says nothing unless the machine has moved meanwhile.
class GeoClueClient {
public:
    /// Who hears of it, never during a call of the client. Each call may destroy the client.
    class Owner {
    public:
        virtual ~Owner() = default;
        virtual void started() = 0;
        virtual void located(Coordinate place) = 0;
        /// It will not be started. `description` is for people.
        virtual void failed(const std::string& description) = 0;
    };

    GeoClueClient(GeoClue& geoclue, LocationAccuracy accuracy, Owner& owner);
    ~GeoClueClient();
    GeoClueClient(const GeoClueClient&) = delete;
    GeoClueClient& operator=(const GeoClueClient&) = delete;

    /// Locates once more the place that is known; nothing while there is none yet.
    void locateAgain();

private:
    static void remove(GeoClue& geoclue, const QString& path);
    void create();
    void created(const QDBusMessage& reply);
    void answered(const QDBusMessage& reply);
    void read();
    void forget();

    GeoClue& geoclue_;
    const unsigned accuracyLevel_;
    Owner& owner_;
    QString path_;     ///< empty until there is an object
    QString location_; ///< the object of the last place; empty until there is one
    std::shared_ptr<void> question_;
    Subscription appeared_;
    Subscription left_;
    Subscription updates_;
    /// For callbacks that may come, or go on, after the client's end.
    const std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace orvelle
