#include "Platform/Linux/TrayMenu.h"

#include "Foundation/Text.h"

#include <utility>

namespace orvelle {

namespace {

constexpr double symbolPointSize = 14;

// A menu takes an ampersand for the mark of its access key.
QString menuText(const std::string& title) {
    const auto shown = Text::displayable(title);
    return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()))
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

TrayMenu::TrayMenu(Menu items, TrayStatusBar::SymbolIcon symbolIcon)
    : items_(std::move(items)), symbolIcon_(std::move(symbolIcon)) {
    fill(menu_, items_);
}

void TrayMenu::fill(QMenu& menu, const Menu& items) {
    for (const auto& item : items) {
        switch (item->kind) {
        case MenuItem::Kind::separator:
            menu.addSeparator();
            break;
        case MenuItem::Kind::submenu: {
            auto* submenu = menu.addMenu(QString());
            follow(*submenu->menuAction(), *item);
            fill(*submenu, item->items);
            break;
        }
        case MenuItem::Kind::text: {
            auto* action = menu.addAction(QString());
            action->setEnabled(false);
            follow(*action, *item);
            break;
        }
        case MenuItem::Kind::command: {
            auto* action = menu.addAction(QString());
            if (!item->keyEquivalent.empty())
                action->setShortcut(QKeySequence(QStringLiteral("Ctrl+") +
                                                 QString::fromStdString(item->keyEquivalent)));
            QObject::connect(action, &QAction::triggered, action, item->perform);
            follow(*action, *item);
            break;
        }
        }
    }
}

void TrayMenu::follow(QAction& action, const MenuItem& item) {
    subscriptions_.push_back(item.title.observe(
        [&action](const std::string& title) { action.setText(menuText(title)); }));
    subscriptions_.push_back(item.symbol.observe([this, &action](const std::string& symbol) {
        if (symbolIcon_ && !symbol.empty())
            action.setIcon(symbolIcon_(symbol, symbolPointSize));
    }));
}

} // namespace orvelle
