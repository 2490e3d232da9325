#include "Platform/Linux/BusFileViewer.h"

#include <QDBusMessage>

#include <utility>

namespace orvelle {

namespace {

constexpr auto service = "org.freedesktop.FileManager1";
constexpr auto servicePath = "/org/freedesktop/FileManager1";

} // namespace

BusFileViewer::BusFileViewer(RunLoop& runLoop, LogSink& log, Workspace& workspace,
                             BusProvider sessionBus)
    : runLoop_(runLoop), log_(log, "BusFileViewer"), workspace_(workspace),
      bus_(std::move(sessionBus)) {}

void BusFileViewer::select(const std::vector<std::string>& urls) {
    if (urls.empty())
        return;
    connecting_ = withBus(
        runLoop_, bus_, [this, urls](const QDBusConnection& connection) { ask(connection, urls); });
}

void BusFileViewer::ask(const QDBusConnection& connection, const std::vector<std::string>& urls) {
    QStringList addresses;
    for (const auto& url : urls)
        addresses += QString::fromStdString(url);
    auto call = QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(servicePath),
                                               QLatin1String(service), QStringLiteral("ShowItems"));
    call << addresses << QString(); // no startup notification
    const auto folder = urls.front().substr(0, urls.front().rfind('/'));
    callBus(connection, call, &context_, [this, folder](const QDBusMessage& answer) {
        if (answer.type() != QDBusMessage::ErrorMessage)
            return;
        log_.info("No file manager shows the file: " + answer.errorName().toStdString());
        workspace_.openDocument(folder);
    });
}

} // namespace orvelle
