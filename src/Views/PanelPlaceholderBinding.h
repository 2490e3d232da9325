#pragma once

#include "Views/NotchContentView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

/// Takes what stands there once: the placeholder of a panel that slides away keeps its own.
class PanelPlaceholderBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(orvelle::PlaceholderValue, placeholder)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<NotchContentView> view_;
};

} // namespace orvelle
