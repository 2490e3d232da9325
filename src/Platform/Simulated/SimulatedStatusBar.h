#pragma once

#include "Platform/StatusBar.h"

#include <utility>

namespace orvelle {

/// A status bar that shows nothing, and keeps what it was given last.
class SimulatedStatusBar : public StatusBar {
public:
    bool hasPlace = true;
    int itemCount = 0; ///< of the items alive
    StatusItem::Image image;
    Menu menu;

    std::unique_ptr<StatusItem> makeStatusItem() override { return std::make_unique<Item>(*this); }

private:
    class Item : public StatusItem {
    public:
        explicit Item(SimulatedStatusBar& bar) : bar_(bar) { ++bar_.itemCount; }
        Item(const Item&) = delete;
        Item& operator=(const Item&) = delete;
        ~Item() override { --bar_.itemCount; }

        void setImage(Image shown, std::function<void(bool)> placed) override {
            bar_.image = std::move(shown);
            placed(bar_.hasPlace);
        }
        void setMenu(Menu items) override { bar_.menu = std::move(items); }

    private:
        SimulatedStatusBar& bar_;
    };
};

} // namespace orvelle
