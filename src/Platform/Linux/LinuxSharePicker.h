#pragma once

#include "Platform/Linux/ShareServices.h"
#include "Platform/SharePicker.h"

#include <QMenu>

#include <memory>

namespace orvelle {

/// Offers the share services in a menu. Needs a QApplication.
class LinuxSharePicker : public SharePicker {
public:
    explicit LinuxSharePicker(Pasteboard& pasteboard);

    /// The window with the keyboard, else the panel: it is worked in without taking the keyboard.
    std::optional<Rect> keyWindowContent() const override;
    void show(const std::vector<std::string>& urls, const Rect& anchor,
              Edge preferredEdge) override;

private:
    ShareServices services_;
    std::unique_ptr<QMenu> menu_; ///< the one that was last shown
};

} // namespace orvelle
