#pragma once

#include "Platform/Pasteboard.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <string>
#include <vector>

namespace orvelle {

/// The ways in which this desktop hands files on: by mail as attachments, to a paired device, and
/// by copying them. Only what is installed is offered. What is started is left to itself. Main
/// thread.
class ShareServices {
public:
    struct Service {
        QString title;
        std::function<void()> perform;
    };

    /// `path` is folders of programs, with colons between.
    ShareServices(Pasteboard& pasteboard, const QString& path);

    /// For at least one file. Never empty: copying is always there.
    std::vector<Service> servicesFor(const std::vector<std::string>& urls) const;

private:
    struct Sender;
    static const std::vector<Sender>& mailSenders();
    static const std::vector<Sender>& deviceSenders();
    void offer(const QString& title, const std::vector<Sender>& senders,
               const std::vector<std::string>& urls, std::vector<Service>& services) const;

    Pasteboard& pasteboard_;
    QStringList folders_;
};

} // namespace orvelle
