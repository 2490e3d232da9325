#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/StatusBar.h"

#include <QIcon>

#include <functional>
#include <string>

namespace orvelle {

/// The desktop's tray: a status notifier item where there is a host for it, an XEmbed icon
/// otherwise. Which of the two is settled by the first host that is found, whether it is there when
/// the item gets its image or comes up later. Needs a QApplication on the platform "xcb", with a
/// platform theme that knows status notifier items.
class TrayStatusBar : public StatusBar {
public:
    /// Draws a symbol `pointSize` large, legible on a light bar and on a dark one.
    using SymbolIcon = std::function<QIcon(const std::string& symbol, double pointSize)>;

    TrayStatusBar(RunLoop& runLoop, BusProvider sessionBus);

    /// Without it the items have no pictures.
    void setSymbolIcon(SymbolIcon symbolIcon) { symbolIcon_ = std::move(symbolIcon); }

    std::unique_ptr<StatusItem> makeStatusItem() override;

private:
    RunLoop& runLoop_;
    BusProvider sessionBus_;
    SymbolIcon symbolIcon_;
};

} // namespace orvelle
