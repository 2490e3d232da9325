#pragma once

#include "Platform/Linux/TrayStatusBar.h"

#include <QMenu>

#include <vector>

namespace orvelle {

/// A menu of the core's as a menu of the toolkit's, which follows its titles and symbols.
class TrayMenu {
public:
    TrayMenu(Menu items, TrayStatusBar::SymbolIcon symbolIcon);

    QMenu& menu() { return menu_; }

private:
    void fill(QMenu& menu, const Menu& items);
    void follow(QAction& action, const MenuItem& item);

    const Menu items_;
    const TrayStatusBar::SymbolIcon symbolIcon_;
    QMenu menu_;
    std::vector<Subscription> subscriptions_;
};

} // namespace orvelle
