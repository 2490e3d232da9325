#include "Platform/Linux/TrayStatusBar.h"

#include "Platform/Linux/TrayHosts.h"
#include "Platform/Linux/TrayMenu.h"

#include <QSystemTrayIcon>

#include <optional>
#include <utility>

namespace orvelle {

namespace {

class TrayItem : public StatusItem {
public:
    TrayItem(RunLoop& runLoop, BusProvider bus, TrayStatusBar::SymbolIcon symbolIcon)
        : runLoop_(runLoop), bus_(std::move(bus)), symbolIcon_(std::move(symbolIcon)) {}

    void setImage(Image image, std::function<void(bool)> placed) override {
        image_ = std::move(image);
        placed_ = std::move(placed);
        hosts_.emplace(runLoop_, bus_, [this](bool hasPlace) { place(hasPlace); });
    }

    void setMenu(Menu menu) override {
        menu_ = std::make_unique<TrayMenu>(std::move(menu), symbolIcon_);
        if (icon_)
            icon_->setContextMenu(&menu_->menu());
    }

private:
    // The toolkit settles with its first icon whether there is a notifier host, so that one made
    // before the host is there would never reach it. Later hosts it follows by itself.
    void place(bool hasPlace) {
        if (hasPlace && !icon_)
            showIcon();
        if (const auto placed = std::exchange(placed_, nullptr))
            placed(hasPlace);
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
    std::optional<TrayHosts> hosts_;
};

} // namespace

TrayStatusBar::TrayStatusBar(RunLoop& runLoop, BusProvider sessionBus)
    : runLoop_(runLoop), sessionBus_(std::move(sessionBus)) {}

std::unique_ptr<StatusItem> TrayStatusBar::makeStatusItem() {
    return std::make_unique<TrayItem>(runLoop_, sessionBus_, symbolIcon_);
}

} // namespace orvelle
