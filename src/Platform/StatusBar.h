#pragma once

#include "Foundation/Published.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// One line of a menu. Title and symbol may change while the menu is on the screen.
struct MenuItem {
    enum class Kind {
        command,
        text, ///< greyed: a line to read
        submenu,
        separator
    };
    Kind kind = Kind::separator;
    Published<std::string> title;
    Published<std::string> symbol; ///< empty for none
    std::string keyEquivalent;     ///< pressed with the platform's command modifier; empty for none
    std::function<void()> perform; ///< of a command
    std::vector<std::shared_ptr<MenuItem>> items; ///< of a submenu
};
using Menu = std::vector<std::shared_ptr<MenuItem>>;

/// The program's sign in the desktop's status bar.
class StatusItem {
public:
    struct Image {
        std::string symbol; ///< a template, drawn in the bar's own colour
        std::string accessibilityDescription;
        double pointSize = 0;
    };

    virtual ~StatusItem() = default;
    /// Shows the image. `placed` hears once, at once or later, whether the bar has a place for the
    /// item; where a bar comes up after a false, the item appears there all the same.
    virtual void setImage(Image image, std::function<void(bool hasButton)> placed) = 0;
    /// What a press on the item opens. The commands are called on the main thread.
    virtual void setMenu(Menu menu) = 0;
};

/// The bar of small signs that a desktop keeps for running programs. Main thread only.
class StatusBar {
public:
    virtual ~StatusBar() = default;
    /// The item leaves the bar when it dies.
    virtual std::unique_ptr<StatusItem> makeStatusItem() = 0;
};

} // namespace orvelle
