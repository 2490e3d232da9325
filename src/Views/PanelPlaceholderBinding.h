#pragma once

#include "Views/NotchContentView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

/// Belongs to the panel that was active when it was made, also while that one slides away.
class PanelPlaceholderBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(orvelle::PlaceholderValue, placeholder)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    ActivePanel panel_ = ActivePanel::media;
};

} // namespace orvelle
