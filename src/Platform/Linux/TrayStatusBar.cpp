#include "Platform/Linux/TrayStatusBar.h"

#include "Platform/Linux/TrayMenu.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QSystemTrayIcon>

#include <optional>
#include <utility>

namespace orvelle {

namespace {

const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

class TrayItem : public StatusItem {
public:
    TrayItem(RunLoop& runLoop, BusProvider bus, TrayStatusBar::SymbolIcon symbolIcon)
        : runLoop_(runLoop), bus_(std::move(bus)), symbolIcon_(std::move(symbolIcon)) {}

    void setImage(Image image, std::function<void(bool)> placed) override {
        image_ = std::move(image);
        placed_ = std::move(placed);
        connecting_ = withBus(
            runLoop_, bus_, [this](const QDBusConnection& connection) { lookForHost(connection); });
    }

    void setMenu(Menu menu) override {
        menu_ = std::make_unique<TrayMenu>(std::move(menu), symbolIcon_);
        if (icon_)
            icon_->setContextMenu(&menu_->menu());
    }

private:
    // An icon that is made before the host is there would never tell the host of itself.
    void lookForHost(const QDBusConnection& connection) {
        watcher_ = std::make_unique<QDBusServiceWatcher>(watcherName, connection,
                                                         QDBusServiceWatcher::WatchForRegistration);
        QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceRegistered, watcher_.get(),
                         [this] { showIcon(); });
        auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
        call << watcherName;
        callBus(connection, call, watcher_.get(), [this](const QDBusMessage& reply) {
            const bool hasHost =
                reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
            const bool hasPlace = hasHost || QSystemTrayIcon::isSystemTrayAvailable();
            if (hasPlace)
                showIcon();
            if (const auto placed = std::exchange(placed_, nullptr))
                placed(hasPlace);
        });
    }

    void showIcon() {
        icon_ = std::make_unique<QSystemTrayIcon>();
        if (symbolIcon_)
            icon_->setIcon(symbolIcon_(image_.symbol, image_.pointSize));
        icon_->setToolTip(QString::fromStdString(image_.accessibilityDescription));
        if (menu_)
            icon_->setContextMenu(&menu_->menu());
        // A plain press opens the menu too, as on bars that know one button only.
        QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                         [this](QSystemTrayIcon::ActivationReason reason) {
                             if (reason == QSystemTrayIcon::Trigger && menu_)
                                 menu_->menu().popup(QCursor::pos());
                         });
        icon_->show();
    }

    RunLoop& runLoop_;
    BusProvider bus_;
    TrayStatusBar::SymbolIcon symbolIcon_;
    Image image_;
    std::function<void(bool)> placed_;
    std::unique_ptr<TrayMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    std::unique_ptr<QDBusServiceWatcher> watcher_;
    Subscription connecting_;
};

} // namespace

TrayStatusBar::TrayStatusBar(RunLoop& runLoop, BusProvider sessionBus)
    : runLoop_(runLoop), sessionBus_(std::move(sessionBus)) {}

std::unique_ptr<StatusItem> TrayStatusBar::makeStatusItem() {
    return std::make_unique<TrayItem>(runLoop_, sessionBus_, symbolIcon_);
}

} // namespace orvelle
